// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/external/ExternalDrawings.h"

#include <QFile>
#include <QFileInfo>
#include <utility>

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
    const QString instead = statedFile((path.chopped(3) + QStringLiteral("dxf")).toStdString(), folder);
    return instead.isEmpty() ? file : instead;
}

/// The part of a name before its first bar, for comparison.
QString outermostName(const std::string& name) {
    return QString::fromStdString(name.substr(0, name.find('|'))).toCaseFolded();
}

/// The blocks of which a drawing lists layers, to which it may give a look of their own.
QSet<QString> layeredBlocks(const Drawing& drawing) {
    QSet<QString> blocks;
    for (const Layer& layer : drawing.layers) {
        if (layer.name.find('|') != std::string::npos) {
            blocks.insert(outermostName(layer.name));
        }
    }
    return blocks;
}

/// A reference that shows what another block holds as if that stood in its place.
Entity sameContent(uint32_t block, const Vec3& basePoint) {
    Entity entity;
    entity.attributes.lineType = lineTypeByBlock;
    entity.attributes.colour.kind = Colour::Kind::byBlock;
    entity.attributes.lineWeight = lineWeightByBlock;
    entity.attributes.opacity = opacityByBlock;
    entity.attributes.plotStyle = plotStyleByBlock;
    Insert reference;
    reference.block = block;
    reference.position = basePoint;
    entity.geometry = reference;
    return entity;
}

} // namespace

void ExternalDrawings::resolve(Drawing& drawing, const QString& path) {
    m_open << QFileInfo(path).canonicalFilePath();
    const bool isReference = m_open.size() > 1;
    const auto own = static_cast<uint32_t>(drawing.blocks.size());
    References references{{}, layeredBlocks(drawing)};
    for (uint32_t i = 0; i < own; ++i) {
        Block& block = drawing.blocks[i];
        if (block.externalPath.empty() || !block.entities.empty()) {
            continue;
        }
        if (block.overlay && isReference) {
            block.externalPath.clear(); // shows in its own drawing alone
        } else {
            fill(i, drawing, references);
        }
    }
    m_open.removeLast();
}

/// What speaks against reading a file; empty where nothing does.
std::string ExternalDrawings::reasonAgainst(const QString& file) {
    if (m_referencesLeft == 0) {
        return "too many references";
    }
    --m_referencesLeft;
    if (m_open.contains(file)) {
        return "refers back to itself";
    }
    if (m_open.size() > deepest) {
        return "nested too deeply";
    }
    const std::int64_t size = QFileInfo(file).size();
    std::int64_t& left = m_readBefore.contains(file) ? m_bytesLeftAgain : m_bytesLeft;
    if (size > left) {
        return "too large, with those before it";
    }
    left -= size;
    m_readBefore.insert(file);
    return {};
}

void ExternalDrawings::fill(uint32_t block, Drawing& drawing, References& references) {
    Block& filled = drawing.blocks[block];
    const QString file =
        QFileInfo(fileOf(filled.externalPath, QString::fromStdString(drawing.folder))).canonicalFilePath();
    if (file.isEmpty()) {
        return;
    }
    const auto known = references.firstBlocks.constFind(file);
    if (known == references.firstBlocks.constEnd()) {
        references.firstBlocks.insert(file, block);
    } else if (const std::string& fault = drawing.blocks[*known].externalFault; !fault.empty()) {
        filled.externalFault = fault;
        return;
    } else if (!references.layered.contains(outermostName(filled.name))) {
        filled.basePoint = drawing.blocks[*known].basePoint;
        filled.entities.push_back(sameContent(*known, filled.basePoint));
        filled.externalPath.clear();
        return;
    }
    filled.externalFault = reasonAgainst(file);
    if (filled.externalFault.empty()) {
        read(file, block, drawing);
    }
}

void ExternalDrawings::read(const QString& file, uint32_t block, Drawing& drawing) {
    const std::string path = QFile::encodeName(file).toStdString();
    try {
        Drawing content = m_readOne(path);
        resolve(content, file);
        mergeAsBlock(std::move(content), block, drawing);
        drawing.blocks[block].externalPath.clear();
    } catch (const ReadError& error) {
        const std::string text = error.what();
        drawing.blocks[block].externalFault = text.substr(text.rfind(path, 0) == 0 ? path.size() + 2 : 0);
    }
}

} // namespace kelplot
