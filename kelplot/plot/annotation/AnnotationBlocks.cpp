// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/AnnotationBlocks.h"

#include <algorithm>

#include "drawing/ArrowHeads.h"
#include "plot/annotation/DimensionDraft.h"
#include "plot/annotation/ToleranceParts.h"
#include "plot/text/Typesetter.h"

namespace kelplot {

namespace {

uint32_t unplottedKind(const std::string& name, Drawing& drawing) {
    std::vector<std::string>& kinds = drawing.unplottedKinds;
    auto found = std::find(kinds.begin(), kinds.end(), name);
    if (found == kinds.end()) {
        found = kinds.insert(kinds.end(), name);
    }
    return static_cast<uint32_t>(found - kinds.begin());
}

/// Builds the blocks of the annotations of one drawing.
class AnnotationBuilder {
public:
    AnnotationBuilder(Drawing& drawing, const FontTable& fonts)
        : m_drawing(drawing), m_firstNew(drawing.blocks.size()), m_texts(drawing, fonts) {}

    void build(std::vector<Entity>& entities) {
        for (Entity& entity : entities) {
            auto* const reference = std::get_if<Insert>(&entity.geometry);
            if (reference != nullptr && reference->annotation < m_drawing.annotations.size() &&
                needsBlock(*reference)) {
                std::visit([&](const auto& annotation) { place(annotation, entity); },
                           m_drawing.annotations[reference->annotation]);
            }
        }
    }

    /// The blocks that were built; the references count them on from those that the drawing has.
    std::vector<Block>& blocks() { return m_blocks; }

private:
    bool needsBlock(const Insert& reference) const {
        if (reference.block >= m_firstNew) {
            return true;
        }
        const Block& block = m_drawing.blocks[reference.block];
        return block.entities.empty() && block.externalPath.empty();
    }

    Vec2 sizeOf(const MText& text) const {
        const Box2& ink = m_texts.place(text).block.ink;
        return {ink.width(), ink.height()};
    }

    std::vector<Entity> partsOf(const Dimension& dimension) const {
        using Kind = Dimension::Kind;
        DimensionDraft draft(m_drawing, dimension, dimension.text ? sizeOf(*dimension.text) : Vec2());
        switch (dimension.kind) {
        case Kind::rotated:
        case Kind::aligned:
            addLinearParts(draft);
            break;
        case Kind::angleOfLines:
        case Kind::angleOfPoints:
            addAngleParts(draft);
            break;
        case Kind::radius:
        case Kind::diameter:
            addRadialParts(draft);
            break;
        case Kind::ordinate:
            addOrdinateParts(draft);
            break;
        case Kind::other:
            break;
        }
        return draft.parts().take();
    }

    void place(const Dimension& dimension, Entity& entity) {
        std::vector<Entity> parts = partsOf(dimension);
        if (parts.empty()) {
            entity.geometry = Unplotted{unplottedKind(dimension.type + " without a block", m_drawing)};
        } else {
            entity.extrusion = dimension.extrusion;
            refer(std::move(parts), entity);
        }
    }

    void place(const ToleranceFrame& frame, Entity& entity) {
        std::vector<std::vector<Vec2>> sizes;
        for (const auto& row : frame.rows) {
            auto& sizesOfRow = sizes.emplace_back();
            for (const MText& cell : row) {
                sizesOfRow.push_back(sizeOf(cell));
            }
        }
        entity.extrusion = frame.extrusion;
        refer(tolerancePartsOf(frame, sizes), entity);
    }

    void refer(std::vector<Entity>&& parts, Entity& entity) {
        Insert reference;
        reference.block = static_cast<uint32_t>(m_firstNew + m_blocks.size());
        Block& block = m_blocks.emplace_back();
        block.entities = std::move(parts);
        entity.geometry = reference;
    }

    Drawing& m_drawing;
    size_t m_firstNew;
    Typesetter m_texts;
    std::vector<Block> m_blocks;
};

void defineArrowHeads(std::vector<Block>& blocks) {
    for (Block& block : blocks) {
        if (!block.defined) {
            if (auto shape = arrowHead(block.name)) {
                block.entities = std::move(*shape);
                block.defined = true;
            }
        }
    }
}

} // namespace

void buildAnnotations(Drawing& drawing, const FontTable& fonts) {
    if (!drawing.annotations.empty()) {
        AnnotationBuilder builder(drawing, fonts);
        builder.build(drawing.modelSpace);
        builder.build(drawing.paperSpace);
        for (Block& block : drawing.blocks) {
            builder.build(block.entities);
        }
        std::move(builder.blocks().begin(), builder.blocks().end(), std::back_inserter(drawing.blocks));
    }
    defineArrowHeads(drawing.blocks);
}

} // namespace kelplot
