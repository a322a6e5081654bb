// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "keldriver/Paper.h"
#include "page/SheetSize.h"
#include "settings/PaperCache.h"

namespace kelplot {

/// The papers of one folder: a text file that people edit, and a binary cache of it, which stands beside it unless it
/// is told another place.
///
/// The text is the master. A cache older than its text is made again; one that is damaged is passed over, with a
/// warning, and never touched. Nothing is written to a text file that cannot be read back whole.
class PaperFile {
public:
    explicit PaperFile(const QString& folder);
    PaperFile(const QString& folder, const QString& cache);

    /// The papers of the device.
    static PaperFile ofDevice();
    /// The papers that the user saved.
    static PaperFile ofUser();

    /// The path of the text file.
    const QString& path() const { return m_text; }
    bool exists() const;

    /// The papers in their order; none when there is no file. Appends to `warnings`. Throws `SettingsError` when the
    /// file is damaged.
    std::vector<PaperSize> read(QStringList& warnings) const;

    /// Adds a paper to the text file as `addToPaperFile` does, creating the folder where it is missing.
    int add(const PaperSize& paper) const;

    /// Tells whether the device takes a sheet of this size, one way round or the other. Without a file it does.
    bool takes(const SheetSize& size) const;

private:
    QString m_folder;
    QString m_text;
    PaperCache m_cache;
};

} // namespace kelplot
