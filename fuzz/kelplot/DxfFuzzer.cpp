// SPDX-License-Identifier: GPL-2.0-or-later

// Reads any bytes as a drawing, and checks what the plot takes for granted of the result. The whole input is the file.

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "MemoryFile.h"
#include "Require.h"
#include "reader/DxfReader.h"

using namespace kelplot;

namespace {

/// Requires that an entity refers only to what its drawing has, and that its lists fit one another.
class EntityCheck {
public:
    explicit EntityCheck(const Drawing& drawing) : m_drawing(drawing) {}

    void operator()(const Entity& entity) const {
        const Attributes& attributes = entity.attributes;
        require(attributes.layer < m_drawing.layers.size());
        require(attributes.lineType < m_drawing.lineTypes.size() || attributes.lineType >= lineTypeByBlock);
        require(attributes.plotStyle < m_drawing.plotStyles.size() || attributes.plotStyle >= plotStyleByBlock);
        visitGeometry(*this, entity);
    }

    void operator()(const Spline& spline) const {
        const size_t points = spline.controlPoints.size();
        require(spline.degree > 0);
        require(points == 0 || spline.knots.size() == points + static_cast<size_t>(spline.degree) + 1);
        require(points == 0 || std::is_sorted(spline.knots.begin(), spline.knots.end()));
        require(spline.weights.empty() || spline.weights.size() == points);
    }
    void operator()(const Hatch& hatch) const {
        for (const HatchLoop& loop : hatch.loops) {
            require(loop.edges.empty() || loop.polyline.empty());
            for (const HatchEdge& edge : loop.edges) {
                if (const auto* const spline = std::get_if<HatchSpline>(&edge)) {
                    (*this)(spline->curve);
                }
            }
        }
    }
    void operator()(const Text& text) const { require(text.style < m_drawing.textStyles.size()); }
    void operator()(const MText& text) const {
        require(text.style < m_drawing.textStyles.size());
        require(!text.paragraphs.empty() && text.attachment >= 1 && text.attachment <= 9);
    }
    void operator()(const Dimension& dimension) const {
        if (dimension.text) {
            (*this)(*dimension.text);
        }
        for (const DimensionEnd& end : dimension.look.ends) {
            require(end.arrow < m_drawing.blocks.size());
        }
    }
    void operator()(const ToleranceFrame& frame) const {
        for (const auto& row : frame.rows) {
            std::for_each(row.begin(), row.end(), [this](const MText& cell) { (*this)(cell); });
        }
    }
    void operator()(const Image& image) const { require(image.definition < m_drawing.images.size()); }
    void operator()(const Viewport& viewport) const {
        for (const uint32_t layer : viewport.frozenLayers) {
            require(layer < m_drawing.layers.size());
        }
        for (const LayerOverride& change : viewport.overrides) {
            require(change.layer < m_drawing.layers.size());
            require(change.lineType.value_or(0) < m_drawing.lineTypes.size() || *change.lineType >= lineTypeByBlock);
        }
    }
    void operator()(const Mesh& mesh) const {
        for (const auto& [from, to] : mesh.edges) {
            require(from < mesh.vertices.size() && to < mesh.vertices.size());
        }
    }
    void operator()(const Mline& mline) const {
        require(!mline.vertices.empty() && mline.style < m_drawing.mlineStyles.size());
    }
    void operator()(const Unplotted& entity) const { require(entity.kind < m_drawing.unplottedKinds.size()); }
    void operator()(const Insert& insert) const {
        require(insert.block < m_drawing.blocks.size() || insert.block == noBlock);
        require(insert.clip < m_drawing.clips.size() || insert.clip == noClip);
        require(insert.annotation < m_drawing.annotations.size() || insert.annotation == noAnnotation);
    }

    template <typename OfNumbersOnly>
    void operator()(const OfNumbersOnly&) const {}

private:
    const Drawing& m_drawing;
};

void check(const Drawing& drawing) {
    require(!drawing.layers.empty() && !drawing.lineTypes.empty() && !drawing.textStyles.empty());
    for (const Layer& layer : drawing.layers) {
        require(layer.lineType < drawing.lineTypes.size());
        require(layer.plotStyle < drawing.plotStyles.size());
    }
    const EntityCheck checkEntity(drawing);
    for (const LineType& lineType : drawing.lineTypes) {
        std::for_each(lineType.texts.begin(), lineType.texts.end(),
                      [&](const LineTypeText& each) { checkEntity(each.text); });
    }
    std::for_each(drawing.modelSpace.begin(), drawing.modelSpace.end(), checkEntity);
    std::for_each(drawing.paperSpace.begin(), drawing.paperSpace.end(), checkEntity);
    for (const Annotation& annotation : drawing.annotations) {
        std::visit(checkEntity, annotation);
    }
    for (const Block& block : drawing.blocks) {
        std::for_each(block.entities.begin(), block.entities.end(), checkEntity);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const MemoryFile file;
    file.write({reinterpret_cast<const char*>(data), size});
    try {
        check(DxfReader().read(file.path(), {}));
    } catch (const ReadError& error) {
        require(error.reason == ReadError::Reason::notADrawing);
    }
    return 0;
}
