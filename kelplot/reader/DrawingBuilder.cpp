// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/DrawingBuilder.h"

#include <QByteArray>
#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "drawing/UnplottedKinds.h"
#include "reader/RecordHeader.h"
#include "reader/object/ClosedLoop.h"
#include "reader/object/DrawOrder.h"
#include "reader/object/LayoutOrder.h"
#include "reader/object/ReferenceClips.h"

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

/// The number of a name, with a place in `items` for what it stands for.
template <typename Item>
uint32_t DrawingBuilder::numbered(NameTable& names, std::string_view name, std::vector<Item>& items) {
    std::string newName;
    const NameTable::Found found = names.find(name, m_decoder, newName);
    if (found.added) {
        items.emplace_back();
    }
    return found.index;
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
        LineType& added = m_drawing.lineTypes.emplace_back();
        added.name = std::move(newName);
        added.defined = found.index == 0; // the first one is continuous
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

uint32_t DrawingBuilder::mlineStyle(std::string_view name) {
    return numbered(m_mlineStyles, name, m_drawing.mlineStyles);
}

uint32_t DrawingBuilder::image(std::string_view handle) {
    return numbered(m_images, handle, m_drawing.images);
}

void DrawingBuilder::addUnplotted(const RecordHeader& header, std::string_view kind) {
    addInWorld(header, Unplotted{unplottedKind(kind, m_drawing)});
}

PlotStyleIndex DrawingBuilder::plotStyle(uint64_t handle) {
    const auto known = m_plotStyles.constFind(handle);
    if (known != m_plotStyles.constEnd()) {
        return *known;
    }
    std::vector<std::string>& styles = m_drawing.plotStyles;
    if (handle == 0 || styles.size() >= plotStyleByBlock) {
        return 0;
    }
    const auto index = static_cast<PlotStyleIndex>(styles.size());
    styles.emplace_back();
    m_plotStyles.insert(handle, index);
    return index;
}

void DrawingBuilder::namePlotStyle(uint64_t handle, std::string_view name) {
    const auto known = m_plotStyles.constFind(handle);
    if (known != m_plotStyles.constEnd()) {
        m_drawing.plotStyles[*known] = m_decoder.decode(name);
    }
}

bool DrawingBuilder::isModelSpace(std::string_view block) {
    // Programs that had to avoid the asterisk wrote a dollar sign instead.
    return equalsIgnoringCase(block, "*MODEL_SPACE") || equalsIgnoringCase(block, "$MODEL_SPACE");
}

bool DrawingBuilder::isPaperSpace(std::string_view block) {
    return equalsIgnoringCase(block, "*PAPER_SPACE") || equalsIgnoringCase(block, "$PAPER_SPACE");
}

void DrawingBuilder::beginBlock(std::string_view name, const Vec3& basePoint, const ExternalDrawing& external) {
    if (isModelSpace(name)) {
        m_destination = Destination::modelSpace;
        return;
    }
    if (isPaperSpace(name)) {
        m_destination = Destination::paperSpace;
        return;
    }
    constexpr std::string_view sheetBlocks = "*PAPER_SPACE";
    m_inSheetBlock = equalsIgnoringCase(name.substr(0, sheetBlocks.size()), sheetBlocks.data());
    m_currentBlock = block(name);
    // A block that is defined twice is what its last definition says.
    Block& defined = m_drawing.blocks[m_currentBlock];
    defined.basePoint = basePoint;
    forgetSheet(m_currentBlock);
    defined.entities.clear();
    defined.externalPath = m_decoder.decode(external.path);
    defined.overlay = external.overlay;
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
    if (const auto place = nextOnSheet(header.inPaperSpace); place && header.handle != 0) {
        m_sheetEntities.insert(header.handle, *place);
    }
    Entity& entity = entities->emplace_back();
    entity.attributes = header.attributes;
    entity.attributes.colour = header.colour();
    entity.geometry = std::move(geometry);
    entity.handle = header.handle;
    return &entity;
}

/// Where the next entity goes, if that is on a sheet.
std::optional<DrawingBuilder::SheetEntity> DrawingBuilder::nextOnSheet(bool inPaperSpace) {
    const bool inSpace = m_destination == Destination::space && inPaperSpace;
    if (inSpace || m_destination == Destination::paperSpace) {
        return SheetEntity{noBlock, m_drawing.paperSpace.size()};
    }
    if (m_destination == Destination::block && m_inSheetBlock) {
        return SheetEntity{m_currentBlock, m_drawing.blocks[m_currentBlock].entities.size()};
    }
    return std::nullopt;
}

/// Forgets what is known of the entities of a block.
void DrawingBuilder::forgetSheet(uint32_t block) {
    for (const Entity& entity : m_drawing.blocks[block].entities) {
        const auto known = m_sheetEntities.constFind(entity.handle);
        if (known != m_sheetEntities.constEnd() && known->block == block) {
            m_sheetEntities.erase(known);
        }
    }
    m_pendingClips.remove(block);
}

Entity& DrawingBuilder::entityAt(const SheetEntity& place) {
    return place.block == noBlock ? m_drawing.paperSpace[place.index]
                                  : m_drawing.blocks[place.block].entities[place.index];
}

void DrawingBuilder::addReference(const RecordHeader& header, Insert reference) {
    if (header.extensionDictionary != 0) {
        reference.clip = static_cast<uint32_t>(m_clipDictionaries.size());
        m_clipDictionaries.push_back(header.extensionDictionary);
    }
    add(header, reference);
}

void DrawingBuilder::addAnnotation(const RecordHeader& header, Annotation&& annotation, Insert reference) {
    reference.annotation = static_cast<uint32_t>(m_drawing.annotations.size());
    if (append(header, reference) != nullptr) {
        m_drawing.annotations.push_back(std::move(annotation));
    }
}

void DrawingBuilder::addViewport(const RecordHeader& header, Viewport&& viewport, uint64_t clipHandle) {
    const auto place = nextOnSheet(header.inPaperSpace);
    if (place && clipHandle != 0) {
        m_pendingClips[place->block].push_back({place->index, clipHandle});
    }
    addInWorld(header, std::move(viewport));
}

/// The borders of viewports may follow them in the file.
void DrawingBuilder::resolveClips() {
    for (auto sheet = m_pendingClips.cbegin(); sheet != m_pendingClips.cend(); ++sheet) {
        for (const PendingClip& pending : *sheet) {
            Viewport& viewport = *geometryAs<Viewport>(entityAt({sheet.key(), pending.viewport}));
            const auto border = m_sheetEntities.constFind(pending.border);
            if (border != m_sheetEntities.constEnd()) {
                viewport.clip = closedLoopOf(entityAt(*border));
            }
            viewport.lostBorder = !viewport.clip;
        }
    }
}

std::vector<Entity>* DrawingBuilder::entitiesOf(const std::string& block) {
    if (isModelSpace(block)) {
        return &m_drawing.modelSpace;
    }
    if (isPaperSpace(block)) {
        return &m_drawing.paperSpace;
    }
    std::string newName;
    const uint32_t index = m_blocks.find(block, m_decoder, newName).index; // that of a new name has no block
    return index < m_drawing.blocks.size() ? &m_drawing.blocks[index].entities : nullptr;
}

template <typename Visitor>
void DrawingBuilder::forEachEntity(const Visitor& visit) {
    std::for_each(m_drawing.modelSpace.begin(), m_drawing.modelSpace.end(), visit);
    std::for_each(m_drawing.paperSpace.begin(), m_drawing.paperSpace.end(), visit);
    for (Block& block : m_drawing.blocks) {
        std::for_each(block.entities.begin(), block.entities.end(), visit);
    }
}

void DrawingBuilder::resolveOverrides() {
    const auto overrides = layerOverrides(m_layerExtensions, m_objects, m_handles.lineTypes());
    if (overrides.isEmpty()) {
        return;
    }
    forEachEntity([&](Entity& entity) {
        if (auto* const viewport = geometryAs<Viewport>(entity)) {
            viewport->overrides = overrides.value(entity.handle);
        }
    });
}

/// References may share a clip, however many there are of them.
void DrawingBuilder::resolveReferenceClips() {
    QHash<uint64_t, uint32_t> clipOfFilter;
    std::vector<uint32_t> clips;
    for (const uint64_t dictionary : m_clipDictionaries) {
        const uint64_t filter = filterOf(dictionary, m_objects);
        if (filter != 0 && !clipOfFilter.contains(filter)) {
            clipOfFilter.insert(filter, static_cast<uint32_t>(m_drawing.clips.size()));
            m_drawing.clips.push_back(clipOf(filter, m_objects));
        }
        clips.push_back(clipOfFilter.value(filter, noClip));
    }
    if (clips.empty()) {
        return;
    }
    forEachEntity([&](Entity& entity) {
        auto* const reference = std::get_if<Insert>(&entity.geometry);
        if (reference != nullptr && reference->clip != noClip) {
            reference->clip = clips[reference->clip];
        }
    });
}

/// Puts viewports into the order in which they lie on one another, and then entities into that of their handles, or of
/// those that the drawing gives them for this.
void DrawingBuilder::orderEntities() {
    stackViewports(m_drawing.paperSpace);
    for (Block& block : m_drawing.blocks) {
        stackViewports(block.entities);
    }
    std::map<std::vector<Entity>*, const SortHandles*> lastOrders; // a damaged file may state any number for a block
    for (const DrawOrder& order : m_objects.drawOrders) {
        if (std::vector<Entity>* const entities = entitiesOf(order.block)) {
            lastOrders[entities] = &order.handles;
        }
    }
    for (const auto& [entities, handles] : lastOrders) {
        sortByHandles(*entities, *handles);
    }
}

Drawing DrawingBuilder::take() {
    resolveClips();
    m_inserts.resolve(m_handles.textStyles(), m_drawing);
    resolveOverrides();
    orderEntities();
    resolveReferenceClips();
    orderLayouts(m_drawing.layouts);
    m_drawing.unknownCodePage = m_decoder.unknownCodePage();
    return std::move(m_drawing);
}

} // namespace kelplot
