// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/DrawingBuilder.h"

#include <QByteArray>
#include <cmath>
#include <utility>

#include "reader/RecordHeader.h"

namespace kelplot {

namespace {

constexpr std::string_view defaultLayer = "0";
constexpr std::string_view continuousLineType = "Continuous";
constexpr std::string_view standardTextStyle = "Standard";

bool equalsIgnoringCase(std::string_view left, const char* right) {
    return qstrnicmp(left.data(), static_cast<qsizetype>(left.size()), right) == 0;
}

/// `direction` if it has a length, else straight up.
Vec3 usableExtrusion(const Vec3& direction) {
    constexpr double shortest = 1e-12;
    const double length = std::hypot(direction.x, direction.y, direction.z);
    return length > shortest ? direction : Vec3{0.0, 0.0, 1.0};
}

} // namespace

NameTable::Found NameTable::find(std::string_view bytes, const TextEncoding& decoder, std::string& newName) {
    if (m_hasLast && bytes == m_lastBytes) {
        return {m_lastIndex, false};
    }
    std::string name = decoder.decode(bytes);
    const QString key = QString::fromStdString(name).toCaseFolded();
    const auto known = m_indexOf.constFind(key);
    const bool added = known == m_indexOf.constEnd();
    const uint32_t index = added ? static_cast<uint32_t>(m_indexOf.size()) : *known;
    if (added) {
        m_indexOf.insert(key, index);
        newName = std::move(name);
    }
    m_lastBytes = bytes;
    m_lastIndex = index;
    m_hasLast = true;
    return {index, added};
}

DrawingBuilder::DrawingBuilder() {
    layer(defaultLayer);
    lineType(continuousLineType);
    textStyle(standardTextStyle);
}

uint32_t DrawingBuilder::layer(std::string_view name) {
    std::string newName;
    const NameTable::Found found = m_layers.find(name.empty() ? defaultLayer : name, m_decoder, newName);
    if (found.added) {
        m_drawing.layers.emplace_back().name = std::move(newName);
    }
    return found.index;
}

uint32_t DrawingBuilder::lineType(std::string_view name) {
    if (name.empty() || equalsIgnoringCase(name, "BYLAYER")) {
        return lineTypeByLayer;
    }
    if (equalsIgnoringCase(name, "BYBLOCK")) {
        return lineTypeByBlock;
    }
    std::string newName;
    const NameTable::Found found = m_lineTypes.find(name, m_decoder, newName);
    if (found.added) {
        m_drawing.lineTypes.emplace_back().name = std::move(newName);
    }
    return found.index;
}

uint32_t DrawingBuilder::textStyle(std::string_view name) {
    std::string newName;
    const NameTable::Found found = m_textStyles.find(name.empty() ? standardTextStyle : name, m_decoder, newName);
    if (found.added) {
        m_drawing.textStyles.emplace_back().name = std::move(newName);
    }
    return found.index;
}

uint32_t DrawingBuilder::block(std::string_view name) {
    std::string newName;
    const NameTable::Found found = m_blocks.find(name, m_decoder, newName);
    if (found.added) {
        Block& added = m_drawing.blocks.emplace_back();
        added.name = std::move(newName);
        added.defined = false;
    }
    return found.index;
}

uint32_t DrawingBuilder::image(std::string_view handle) {
    std::string newHandle;
    const NameTable::Found found = m_images.find(handle, m_decoder, newHandle);
    if (found.added) {
        m_drawing.images.emplace_back();
    }
    return found.index;
}

void DrawingBuilder::beginBlock(std::string_view name, const Vec3& basePoint) {
    // Programs that had to avoid the asterisk wrote a dollar sign instead.
    if (equalsIgnoringCase(name, "*MODEL_SPACE") || equalsIgnoringCase(name, "$MODEL_SPACE")) {
        m_destination = Destination::modelSpace;
        return;
    }
    if (equalsIgnoringCase(name, "*PAPER_SPACE") || equalsIgnoringCase(name, "$PAPER_SPACE")) {
        m_destination = Destination::paperSpace;
        return;
    }
    m_currentBlock = block(name);
    // A block that is defined twice is what its last definition says.
    Block& defined = m_drawing.blocks[m_currentBlock];
    defined.basePoint = basePoint;
    defined.entities.clear();
    defined.defined = true;
    m_destination = Destination::block;
}

void DrawingBuilder::beginNamelessBlock() {
    m_destination = Destination::nowhere;
}

void DrawingBuilder::endBlock() {
    m_destination = Destination::space;
}

std::vector<Entity>* DrawingBuilder::destinationFor(bool inPaperSpace) {
    switch (m_destination) {
    case Destination::block:
        return &m_drawing.blocks[m_currentBlock].entities;
    case Destination::modelSpace:
        return &m_drawing.modelSpace;
    case Destination::paperSpace:
        return &m_drawing.paperSpace;
    case Destination::space:
        return inPaperSpace ? &m_drawing.paperSpace : &m_drawing.modelSpace;
    case Destination::nowhere:
        break;
    }
    return nullptr;
}

void DrawingBuilder::add(const RecordHeader& header, Geometry&& geometry) {
    if (Entity* const entity = append(header, std::move(geometry))) {
        entity->extrusion = usableExtrusion(header.extrusion);
    }
}

void DrawingBuilder::addInWorld(const RecordHeader& header, Geometry&& geometry) {
    append(header, std::move(geometry));
}

Entity* DrawingBuilder::append(const RecordHeader& header, Geometry&& geometry) {
    std::vector<Entity>* const entities = destinationFor(header.inPaperSpace);
    if (entities == nullptr) {
        return nullptr;
    }
    Entity& entity = entities->emplace_back();
    entity.attributes = header.attributes;
    entity.attributes.colour = header.colour();
    entity.geometry = std::move(geometry);
    return &entity;
}

Drawing DrawingBuilder::take() {
    m_drawing.unknownCodePage = m_decoder.unknownCodePage();
    return std::move(m_drawing);
}

} // namespace kelplot
