// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <QString>
#include <QStringList>

#include "keldriver/Win32Types.h"
#include "render/FontCoverage.h"

namespace KelDriver::Internal {

/// The fonts that a driver maps face names to, the system's fonts, and what all of them can show.
class FontStock {
public:
    struct MappedFont {
        QString foldedName; ///< the face name that texts ask for, without regard to case
        tagLOGFONTW record;
    };

    void add(const std::wstring& faceName, const tagLOGFONTW& record);
    const std::vector<MappedFont>& mappedFonts() const { return m_mapped; }
    const tagLOGFONTW* find(const std::wstring& faceName) const;

    /// What the installed font of the record's face name can show in its weight and slant; null when none is
    /// installed, and always without a `QGuiApplication`. Owned by the stock.
    FontCoverage* coverageOf(const tagLOGFONTW& record);
    /// Every family that is installed; none without a `QGuiApplication`.
    const QStringList& families();
    /// The family that the system draws with when nothing else is asked for; empty without a `QGuiApplication`.
    QString defaultFamily();

    /// Looks for the installed fonts where none were known yet. True when it finds some, as happens once there is an
    /// application.
    bool findsNewFonts();

    /// What tells fonts apart here: the folded face name, the weight, and whether it is slanted.
    using FontKey = std::tuple<QString, int32_t, bool>;
    static FontKey keyOf(const tagLOGFONTW& record);

private:
    std::vector<MappedFont> m_mapped; ///< in the driver's order of preference
    QStringList m_installed;
    std::map<FontKey, std::unique_ptr<FontCoverage>> m_coverages;
};

} // namespace KelDriver::Internal
