// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <vector>

#include "keldriver/Paper.h"
#include "page/SheetSize.h"

namespace kelplot {

/// The papers of one folder: a text file that people edit, and the binary cache of it that the library keeps beside it.
///
/// The text is the master. A cache older than its text is made anew; one that is damaged is passed over, with a
/// warning, and never touched. Nothing is written to a text file that cannot be read back whole.
class PaperFile {
public:
    explicit PaperFile(const QString& folder);

    /// The path of the text file.
    const QString& path() const { return m_text; }
    bool exists() const;

    /// The papers in their order; none when there is no file. Appends to `warnings`. Throws `SettingsError` when the
    /// file is damaged.
    std::vector<PaperSize> read(QStringList& warnings) const;

    /// Adds a paper under a number of its own and returns it. Creates folder and file where they are missing; what the
    /// file was before stays beside it with "~" behind its name. All comments stay but those above the keys of papers.
    /// Throws `SettingsError`, and then the file is as it was; beside it there is at worst a copy of it.
    int add(const PaperSize& paper) const;

    /// Tells whether the device takes a sheet of this size, one way round or the other. Without a file it does.
    bool takes(const SheetSize& size) const;

private:
    bool cacheIsCurrent() const;
    bool cacheIsWhole() const;
    std::vector<PaperSize> readText() const;
    void makeCache(const std::vector<PaperSize>& records, const QDateTime& textChange) const;

    QString m_folder;
    QString m_text;
    QString m_cache;
};

} // namespace kelplot
