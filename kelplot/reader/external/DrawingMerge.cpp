// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/external/DrawingMerge.h"

#include <QHash>
#include <QString>
#include <algorithm>
#include <iterator>
#include <utility>

#include "drawing/UnplottedKinds.h"

namespace kelplot {

namespace {

QString keyOf(const std::string& name) {
    return QString::fromStdString(name).toCaseFolded();
}

/// The new index for each of the other drawing's.
using Indices = std::vector<uint32_t>;

using PlotStyleIndices = std::vector<PlotStyleIndex>;

template <typename Index>
Index at(const std::vector<Index>& indices, Index index, Index otherwise) {
    return index < indices.size() ? indices[index] : otherwise;
}

/// Puts the indices of the drawing that entities go into in place of those of the drawing that they come from.
struct Renumbering {
    Indices layers, lineTypes, kinds;
    uint32_t textStyles = 0; ///< by how much the others grow
    uint32_t images = 0;
    uint32_t mlineStyles = 0;
    uint32_t blocks = 0;
    uint32_t clips = 0;
    uint32_t annotations = 0;
    PlotStyleIndices plotStyles;

    void apply(std::vector<Entity>& entities) const {
        for (Entity& entity : entities) {
            entity.attributes.layer = at(layers, entity.attributes.layer, 0U);
            entity.attributes.lineType = at(lineTypes, entity.attributes.lineType, entity.attributes.lineType);
            entity.attributes.plotStyle = at(plotStyles, entity.attributes.plotStyle, entity.attributes.plotStyle);
            visitGeometry(*this, entity);
        }
    }

    void operator()(Text& text) const { text.style += textStyles; }
    void operator()(MText& text) const { text.style += textStyles; }
    void operator()(Image& image) const { image.definition += images; }
    void operator()(Mline& mline) const { mline.style += mlineStyles; }
    void operator()(Unplotted& entity) const { entity.kind = at(kinds, entity.kind, 0U); }
    void operator()(Insert& insert) const {
        insert.block += insert.block == noBlock ? 0 : blocks;
        insert.clip += insert.clip == noClip ? 0 : clips;
        insert.annotation += insert.annotation == noAnnotation ? 0 : annotations;
    }
    void operator()(Dimension& dimension) const {
        for (DimensionEnd& end : dimension.look.ends) {
            end.arrow += end.arrow == noBlock ? 0 : blocks;
            renumber(end.extensionLine);
        }
        renumber(dimension.look.line);
        if (dimension.text) {
            (*this)(*dimension.text);
        }
    }
    void operator()(ToleranceFrame& frame) const {
        renumber(frame.line);
        for (std::vector<MText>& row : frame.rows) {
            for (MText& cell : row) {
                (*this)(cell);
            }
        }
    }
    void renumber(PartLook& look) const { look.lineType = at(lineTypes, look.lineType, look.lineType); }
    void operator()(Viewport& viewport) const {
        for (uint32_t& layer : viewport.frozenLayers) {
            layer = at(layers, layer, 0U);
        }
        viewport.overrides.clear(); // their line types are those of a sheet, which is not shown
    }
    // These refer to nothing.
    void operator()(PointEntity&) const {}
    void operator()(Line&) const {}
    void operator()(ConstructionLine&) const {}
    void operator()(Circle&) const {}
    void operator()(Arc&) const {}
    void operator()(Ellipse&) const {}
    void operator()(Polyline&) const {}
    void operator()(Spline&) const {}
    void operator()(Solid&) const {}
    void operator()(Face3d&) const {}
    void operator()(Mesh&) const {}
    void operator()(Hatch&) const {}
    void operator()(Wipeout&) const {}
};

template <typename Item>
uint32_t moveAll(std::vector<Item>& from, std::vector<Item>& into) {
    const auto offset = static_cast<uint32_t>(into.size());
    into.insert(into.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
    return offset;
}

class Merge {
public:
    Merge(Drawing& from, uint32_t block, Drawing& into)
        : m_from(from), m_block(block), m_into(into), m_prefix(into.blocks[block].name + '|') {}

    void run() {
        m_numbers.textStyles = static_cast<uint32_t>(m_into.textStyles.size());
        numberLineTypes();
        numberPlotStyles();
        numberLayers();
        numberKinds();
        moveStyles();
        moveBlocks();
        Block& block = m_into.blocks[m_block];
        block.basePoint = m_from.basePoint;
        block.entities = std::move(m_from.modelSpace);
        m_numbers.apply(block.entities);
        if (m_into.unknownCodePage.empty()) {
            m_into.unknownCodePage = m_from.unknownCodePage;
        }
    }

private:
    /// Of types that both drawings know, the one with a pattern counts.
    void numberLineTypes() {
        QHash<QString, uint32_t> known;
        for (uint32_t i = 0; i < m_into.lineTypes.size(); ++i) {
            known.insert(keyOf(m_into.lineTypes[i].name), i);
        }
        m_numbers.lineTypes.push_back(0); // continuous
        for (size_t i = 1; i < m_from.lineTypes.size(); ++i) {
            LineType& type = m_from.lineTypes[i];
            type.name = m_prefix + type.name;
            for (LineTypeText& text : type.texts) {
                m_numbers(text.text);
            }
            const auto found = known.constFind(keyOf(type.name));
            m_numbers.lineTypes.push_back(found == known.constEnd() ? static_cast<uint32_t>(m_into.lineTypes.size())
                                                                    : *found);
            if (found == known.constEnd()) {
                m_into.lineTypes.push_back(std::move(type));
            } else if (LineType& listed = m_into.lineTypes[*found]; listed.pattern.empty()) {
                type.defined = type.defined || listed.defined;
                listed = std::move(type);
            }
        }
    }

    void numberPlotStyles() {
        std::vector<std::string>& styles = m_into.plotStyles;
        for (std::string& style : m_from.plotStyles) {
            const auto found = std::find(styles.begin(), styles.end(), style);
            const bool isNew = found == styles.end() && styles.size() < plotStyleByBlock;
            m_numbers.plotStyles.push_back(isNew || found != styles.end()
                                               ? static_cast<PlotStyleIndex>(found - styles.begin())
                                               : PlotStyleIndex{0});
            if (isNew) {
                styles.push_back(std::move(style));
            }
        }
    }

    void numberLayers() {
        QHash<QString, uint32_t> known;
        for (uint32_t i = 0; i < m_into.layers.size(); ++i) {
            known.insert(keyOf(m_into.layers[i].name), i);
        }
        m_numbers.layers.push_back(0); // "0"
        for (size_t i = 1; i < m_from.layers.size(); ++i) {
            Layer& layer = m_from.layers[i];
            layer.name = m_prefix + layer.name;
            layer.lineType = at(m_numbers.lineTypes, layer.lineType, 0U);
            layer.plotStyle = at(m_numbers.plotStyles, layer.plotStyle, PlotStyleIndex{0});
            const auto found = known.constFind(keyOf(layer.name));
            m_numbers.layers.push_back(found == known.constEnd() ? static_cast<uint32_t>(m_into.layers.size())
                                                                 : *found);
            if (found == known.constEnd()) {
                m_into.layers.push_back(std::move(layer));
            }
        }
    }

    void numberKinds() {
        for (const std::string& kind : m_from.unplottedKinds) {
            m_numbers.kinds.push_back(unplottedKind(kind, m_into));
        }
    }

    void moveStyles() {
        for (TextStyle& style : m_from.textStyles) {
            style.name = m_prefix + style.name;
        }
        for (ImageDefinition& image : m_from.images) {
            image.folder = image.folder.empty() ? m_from.folder : image.folder;
        }
        for (MlineStyle& style : m_from.mlineStyles) {
            for (MlineStyle::Line& line : style.lines) {
                line.lineType = at(m_numbers.lineTypes, line.lineType, line.lineType);
            }
        }
        moveAll(m_from.textStyles, m_into.textStyles);
        m_numbers.images = moveAll(m_from.images, m_into.images);
        m_numbers.mlineStyles = moveAll(m_from.mlineStyles, m_into.mlineStyles);
        m_numbers.clips = moveAll(m_from.clips, m_into.clips);
    }

    void moveBlocks() {
        for (const Layout& layout : m_from.layouts) {
            if (layout.block != noBlock) {
                m_from.blocks[layout.block].entities.clear(); // no reference shows a sheet
            }
        }
        m_numbers.blocks = static_cast<uint32_t>(m_into.blocks.size());
        for (Annotation& annotation : m_from.annotations) {
            std::visit(m_numbers, annotation);
        }
        m_numbers.annotations = moveAll(m_from.annotations, m_into.annotations);
        for (Block& block : m_from.blocks) {
            block.name = m_prefix + block.name;
            m_numbers.apply(block.entities);
        }
        moveAll(m_from.blocks, m_into.blocks);
    }

    Drawing& m_from;
    const uint32_t m_block;
    Drawing& m_into;
    const std::string m_prefix;
    Renumbering m_numbers;
};

} // namespace

void mergeAsBlock(Drawing&& from, uint32_t block, Drawing& into) {
    Merge(from, block, into).run();
}

} // namespace kelplot
