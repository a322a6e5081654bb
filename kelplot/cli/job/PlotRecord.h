// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <map>
#include <optional>
#include <vector>

#include "page/SheetSize.h"

namespace kelplot {

/// What became of a page.
struct PageRecord {
    QString space; ///< "model" or the name of a layout
    SheetSize sheet;
    double scale = 1.0;
    size_t entities = 0; ///< of the space, those in blocks and viewports not counted
    size_t viewports = 0;
    std::map<QString, size_t> leftOut;       ///< entities by kind
    std::optional<std::pair<int, int>> tile; ///< row and column, from 1; none: the page is the whole sheet
};

/// What became of a drawing.
struct DrawingRecord {
    QString drawing;
    std::vector<PageRecord> pages;
    std::map<QString, QString> replacedFonts;
    QStringList missingCharacters;
    QStringList warnings;
    QStringList notes;
    QString error; ///< empty: it was plotted
};

/// What became of a file that was to be written.
struct FileRecord {
    QString file;
    bool written = false;
    std::vector<DrawingRecord> drawings;
};

/// The records of a run as a JSON document.
QByteArray jsonOf(const std::vector<FileRecord>& files, int status);

} // namespace kelplot
