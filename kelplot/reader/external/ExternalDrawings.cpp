// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/external/ExternalDrawings.h"

#include <QFile>
#include <QFileInfo>

#include "base/StatedFile.h"
#include "reader/DrawingReader.h"
#include "reader/external/DrawingMerge.h"

namespace kelplot {

namespace {

constexpr int deepest = 16; ///< references within references

/// The file that a reference means. Where that is a DWG drawing, the same drawing may lie beside it as DXF.
QString fileOf(const std::string& stated, const QString& folder) {
    QString file = statedFile(stated, folder);
    const QString path = QString::fromStdString(stated);
    const bool isDxf = !file.isEmpty() && !file.endsWith(QLatin1String(".dwg"), Qt::CaseInsensitive);
    if (isDxf || !path.endsWith(QLatin1String(".dwg"), Qt::CaseInsensitive)) {
        return file;
    }
    QString instead = statedFile((path.chopped(3) + QStringLiteral("dxf")).toStdString(), folder);
    return instead.isEmpty() ? file : instead;
}

} // namespace

void ExternalDrawings::resolve(Drawing& drawing, const QString& path) {
    m_open << QFileInfo(path).canonicalFilePath();
    const bool isReference = m_open.size() > 1;
    const auto own = static_cast<uint32_t>(drawing.blocks.size());
    for (uint32_t i = 0; i < own; ++i) {
        Block& block = drawing.blocks[i];
        if (block.externalPath.empty() || !block.entities.empty()) {
            continue;
        }
        if (block.overlay && isReference) {
            block.externalPath.clear(); // shows in its own drawing alone
        } else {
            fill(i, drawing);
        }
    }
    m_open.removeLast();
}

/// What speaks against reading a file; empty where nothing does.
std::string ExternalDrawings::reasonAgainst(const QString& file) const {
    if (m_open.contains(QFileInfo(file).canonicalFilePath())) {
        return "refers back to itself";
    }
    if (m_open.size() > deepest) {
        return "nested too deeply";
    }
    return QFileInfo(file).size() > m_bytesLeft ? "too large, with those before it" : "";
}

void ExternalDrawings::fill(uint32_t block, Drawing& drawing) {
    std::string& fault = drawing.blocks[block].externalFault;
    if (m_referencesLeft == 0) {
        fault = "too many references";
        return;
    }
    --m_referencesLeft;
    const QString file = fileOf(drawing.blocks[block].externalPath, QString::fromStdString(drawing.folder));
    if (file.isEmpty()) {
        return;
    }
    fault = reasonAgainst(file);
    if (!fault.empty()) {
        return;
    }
    m_bytesLeft -= QFileInfo(file).size();
    const std::string path = QFile::encodeName(file).toStdString();
    try {
        Drawing read = m_readOne(path);
        resolve(read, file);
        mergeAsBlock(std::move(read), block, drawing);
        drawing.blocks[block].externalPath.clear();
    } catch (const ReadError& error) {
        const std::string text = error.what();
        fault = text.substr(text.rfind(path, 0) == 0 ? path.size() + 2 : 0);
    }
}

} // namespace kelplot
