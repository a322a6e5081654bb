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
#include "render/FontChooser.h"
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
    const std::vector<MappedFont>& mappedFonts() const { return mapped; }
    const tagLOGFONTW* find(const std::wstring& faceName) const;

    /// What the installed font of the record's face name can show in its weight and slant; null when none is
    /// installed, and always without a `QGuiApplication`. Owned by the stock.
    FontCoverage* coverageOf(const tagLOGFONTW& record);
    /// Every family that is installed; none without a `QGuiApplication`.
    const QStringList& families();
    /// The family that the system draws with when nothing else is asked for; empty without a `QGuiApplication`.
    QString defaultFamily();

    /// Chooses fonts for texts that ask for a face name. Owned by the stock; valid until a font is added
    /// or another chooser is asked for.
    FontChooser& chooserFor(const std::wstring& faceName);
    /// Chooses fonts for texts that ask for a record; all keep its weight and slant.
    FontChooser& chooserFor(const tagLOGFONTW& request);

private:
    using FontKey = std::tuple<QString, int32_t, bool>; ///< folded face name, weight, slanted

    static FontKey keyOf(const tagLOGFONTW& record);
    void forgetChoosers();
    /// Forgets the choosers from before there was an application, which know of no installed fonts.
    void lookForFonts();

    std::vector<MappedFont> mapped; ///< in the driver's order of preference
    QStringList installed;
    std::map<FontKey, std::unique_ptr<FontCoverage>> coverages;
    std::map<std::wstring, std::unique_ptr<FontChooser>> choosersByName; ///< each spelling its own
    std::map<FontKey, std::unique_ptr<FontChooser>> choosersByRecord;
};

} // namespace KelDriver::Internal
