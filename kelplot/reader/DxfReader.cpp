// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/DxfReader.h"

#include <dl_dxf.h>

#include <QFile>
#include <QFileInfo>
#include <istream>
#include <memory>

#include "reader/DrawingFile.h"
#include "reader/DrawingReader.h"
#include "reader/GroupFilter.h"
#include "reader/external/ExternalDrawings.h"
#include "reader/groups/BinaryGroupReader.h"
#include "reader/groups/TextGroupReader.h"

namespace kelplot {

namespace {

void checkWhole(const RecordRouter& router) {
    if (!router.sawDrawing()) {
        throw DrawingFault("not a drawing: it has no sections and no entities");
    }
    if (!router.sawEnd()) {
        throw DrawingFault("the drawing is truncated: the mark at its end is missing");
    }
}

std::unique_ptr<GroupSource> groupsOf(DrawingFile& file, const Progress& progress) {
    if (file.isBinary) {
        return std::make_unique<BinaryGroupReader>(file.stream, file.size, progress);
    }
    return std::make_unique<TextGroupReader>(file.stream, file.size, progress);
}

Drawing readGroups(DrawingFile& file, const Progress& progress) {
    const std::unique_ptr<GroupSource> groups = groupsOf(file, progress);
    DrawingBuilder builder;
    RecordRouter router(builder);
    GroupFilter filter(*groups, router);
    std::istream input(&filter);
    DL_Dxf().in(input, &router.libraryRecords());
    filter.rethrowFailure();
    checkWhole(router);
    if (progress) {
        progress(1.0);
    }
    return builder.take();
}

/// Reads a drawing without those that it refers to.
Drawing readOne(const std::string& path, const Progress& progress) {
    DrawingFile file = openDrawingFile(path);
    try {
        Drawing drawing = readGroups(file, progress);
        drawing.folder = QFileInfo(QFile::decodeName(path.c_str())).path().toStdString();
        return drawing;
    } catch (const DrawingFault& fault) {
        throw ReadError(ReadError::Reason::notADrawing, path + ": " + fault.what());
    }
}

} // namespace

Drawing DxfReader::read(const std::string& path, const Progress& progress) {
    Drawing drawing = readOne(path, progress);
    ExternalDrawings([](const std::string& reference) {
        return readOne(reference, {});
    }).resolve(drawing, QFile::decodeName(path.c_str()));
    return drawing;
}

} // namespace kelplot
