// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "keldriver/Paper.h"
#include "page/SheetSize.h"

namespace kelplot {

/// A paper with its name.
struct NamedPaper {
    QString name;
    SheetSize size;
    Margins margins;
    int number = 0;   ///< under which the device knows it
    bool own = false; ///< one of the user's
};

/// The papers that can be asked for by name: the user's own, then the device's. Of several with one name, the first
/// counts.
class PaperTable {
public:
    /// Reads the user's papers and the device's. Appends to `warnings`. Throws `SettingsError` when a file is damaged.
    static PaperTable load(QStringList& warnings);

    /// Adds papers after those that are there; those whose names are taken are left out.
    void add(const std::vector<PaperSize>& records, bool own);

    const std::vector<NamedPaper>& papers() const { return m_papers; }
    /// The paper of this name, in any case, with or without blanks, hyphens and a leading "DIN" or "ISO"; null when
    /// there is none.
    const NamedPaper* find(const QString& name) const&;
    const NamedPaper* find(const QString& name) const&& = delete; ///< the paper would go with the table
    /// The few names most like `name`, the best first.
    QStringList nearest(const QString& name) const;

private:
    std::vector<NamedPaper> m_papers;
};

/// A size as people give and read it: its width and height in millimetres, as in "210x297".
QString sizeText(const SheetSize& size);

/// The record for a paper of this name. Nothing when the name cannot be kept in a paper file: it is empty, longer
/// than 63 bytes, or holds a number sign, a quote, a control character or one beyond the basic plane.
std::optional<PaperSize> recordFor(const QString& name, const SheetSize& size, const Margins& margins);

/// Tells whether a paper file keeps these lengths as they are: it counts tenths of a millimetre.
bool isInTenths(const SheetSize& size, const Margins& margins);

} // namespace kelplot
