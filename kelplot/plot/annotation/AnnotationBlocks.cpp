// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/AnnotationBlocks.h"

#include <algorithm>
#include <cmath>

#include "drawing/ArrowHeads.h"
#include "drawing/DimensionMeasure.h"
#include "drawing/UnplottedKinds.h"
#include "plot/annotation/AngleParts.h"
#include "plot/annotation/LinearParts.h"
#include "plot/annotation/OrdinateParts.h"
#include "plot/annotation/RadialParts.h"
#include "plot/annotation/ToleranceParts.h"
#include "plot/text/Typesetter.h"

namespace kelplot {

namespace {

/// Whether letters and arrow heads of a dimension are of sizes that a plot can show beside what is measured.
bool hasPossibleSizes(const Dimension& dimension) {
    constexpr double mostOfExtent = 1e4;
    constexpr double leastOfExtent = 1e-9;
    const Box2 box = boxOfPoints(dimension);
    const double extent = box.width() + box.height();
    const double letter = dimension.text ? dimension.text->height : 0.0;
    const DimensionLook& look = dimension.look;
    const double largest = std::max({letter, look.arrowSize, look.tickSize, look.gap, std::abs(look.centreMark)});
    if (!(extent > 0.0)) {
        return std::isfinite(largest);
    }
    return largest <= extent * mostOfExtent && (!dimension.text || letter >= extent * leastOfExtent);
}

/// Why a dimension cannot be drawn.
const char* faultOf(const Dimension& dimension) {
    if (dimension.kind == Dimension::Kind::other) {
        return " without a block";
    }
    return hasPossibleSizes(dimension) ? " with points that it cannot measure" : " with an impossible size";
}

bool hasStack(const MText& text) {
    for (const Paragraph& paragraph : text.paragraphs) {
        for (const TextPiece& piece : paragraph.pieces) {
            if (std::holds_alternative<TextStack>(piece)) {
                return true;
            }
        }
    }
    return false;
}

/// What a text that hangs by its middle covers about it, but for the tails of its last letters, which reach into the
/// gap around the text. A stack is not about the middle, and counts as a whole.
Box2 bodyOf(const MText& text, const Box2& ink) {
    if (ink.isEmpty()) {
        return ink;
    }
    constexpr double mostOfOneLine = 0.75; // in heights of its letters: some reach a little above them
    const bool isOneLine = ink.max.y <= text.height * mostOfOneLine;
    const double halfWidth = ink.width() / 2.0;
    const double halfHeight = isOneLine ? text.height / 2.0 : ink.max.y;
    return hasStack(text) ? Box2{{-halfWidth, ink.min.y}, {halfWidth, ink.max.y}}
                          : Box2{{-halfWidth, -halfHeight}, {halfWidth, halfHeight}};
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

    Box2 bodyOf(const MText& text) const { return kelplot::bodyOf(text, m_texts.place(text).block.ink); }

    /// None of a dimension that cannot be drawn as a whole.
    std::vector<Entity> partsOf(const Dimension& dimension) const {
        using Kind = Dimension::Kind;
        if (!hasPossibleSizes(dimension)) {
            return {};
        }
        DimensionDraft draft(m_drawing, dimension, dimension.text ? bodyOf(*dimension.text) : Box2());
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
        return draft.parts().isWhole() ? draft.parts().take() : std::vector<Entity>();
    }

    void place(const Dimension& dimension, Entity& entity) {
        std::vector<Entity> parts = partsOf(dimension);
        if (parts.empty()) {
            entity.geometry = Unplotted{unplottedKind(dimension.type + faultOf(dimension), m_drawing)};
        } else {
            entity.extrusion = dimension.extrusion;
            refer(std::move(parts), entity);
        }
    }

    void place(const ToleranceFrame& frame, Entity& entity) {
        std::vector<std::vector<Box2>> bodies;
        for (const auto& row : frame.rows) {
            auto& bodiesOfRow = bodies.emplace_back();
            for (const MText& cell : row) {
                bodiesOfRow.push_back(bodyOf(cell));
            }
        }
        std::vector<Entity> parts = tolerancePartsOf(frame, bodies);
        if (parts.empty()) {
            entity.geometry = Unplotted{unplottedKind("TOLERANCE with an impossible size", m_drawing)};
        } else {
            entity.extrusion = frame.extrusion;
            refer(std::move(parts), entity);
        }
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
