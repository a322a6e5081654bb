// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/PlotRecord.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace kelplot {
namespace {

template <typename Items, typename ToJson>
QJsonArray arrayOf(const Items& items, ToJson toJson) {
    QJsonArray array;
    for (const auto& item : items) {
        array << toJson(item);
    }
    return array;
}

QJsonObject jsonOfPage(const PageRecord& page) {
    QJsonObject leftOut;
    for (const auto& [kind, count] : page.leftOut) {
        leftOut[kind] = static_cast<qint64>(count);
    }
    QJsonObject object{{QStringLiteral("space"), page.space},
                       {QStringLiteral("width"), page.sheet.width},
                       {QStringLiteral("height"), page.sheet.height},
                       {QStringLiteral("scale"), page.scale},
                       {QStringLiteral("entities"), static_cast<qint64>(page.entities)},
                       {QStringLiteral("viewports"), static_cast<qint64>(page.viewports)},
                       {QStringLiteral("leftOut"), leftOut}};
    if (page.tile) {
        object[QStringLiteral("row")] = page.tile->first;
        object[QStringLiteral("column")] = page.tile->second;
    }
    return object;
}

QJsonObject jsonOfDrawing(const DrawingRecord& drawing) {
    QJsonObject fonts;
    for (const auto& [font, family] : drawing.replacedFonts) {
        fonts[font] = family;
    }
    QJsonObject object{{QStringLiteral("drawing"), drawing.drawing},
                       {QStringLiteral("pages"), arrayOf(drawing.pages, jsonOfPage)},
                       {QStringLiteral("replacedFonts"), fonts},
                       {QStringLiteral("missingCharacters"), QJsonArray::fromStringList(drawing.missingCharacters)},
                       {QStringLiteral("warnings"), QJsonArray::fromStringList(drawing.warnings)},
                       {QStringLiteral("notes"), QJsonArray::fromStringList(drawing.notes)}};
    if (!drawing.error.isEmpty()) {
        object[QStringLiteral("error")] = drawing.error;
    }
    return object;
}

QJsonObject jsonOfFile(const FileRecord& file) {
    return {{QStringLiteral("file"), file.file},
            {QStringLiteral("written"), file.written},
            {QStringLiteral("drawings"), arrayOf(file.drawings, jsonOfDrawing)}};
}

} // namespace

QByteArray jsonOf(const std::vector<FileRecord>& files, int status) {
    const QJsonObject run{{QStringLiteral("status"), status}, {QStringLiteral("files"), arrayOf(files, jsonOfFile)}};
    return QJsonDocument(run).toJson();
}

} // namespace kelplot
