// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cstdio>

#include "keldriver/VornRgn.h"
#include "region/GpcPolygon.h"
#include "region/RgnList.h"

using namespace KelDriver::Internal;

namespace {

/// An array from the clipper's allocator; null for no items, and after a message when memory runs out.
template <typename Item>
Item* allocate(int count) {
    if (count == 0) {
        return nullptr;
    }
    void* memory = tarsel_malloc(static_cast<size_t>(count) * sizeof(Item));
    if (!memory) {
        std::fprintf(stderr, "gpc malloc failure: %s\n", "LMT insertion");
    }
    return static_cast<Item*>(memory);
}

gpc_vertex_list verticesOf(const HT_ClipRgn& node) {
    const int count = vertexCount(node);
    auto* vertices = allocate<gpc_vertex>(count);
    if (!vertices) {
        return {0, nullptr};
    }
    std::transform(node.points, node.points + count, vertices, [](const HT_Double_Point& point) {
        return gpc_vertex{point.x, point.y};
    });
    return {count, vertices};
}

GpcPolygonPtr makePolygon(int contours) {
    GpcPolygonPtr polygon = makeGpcPolygon();
    polygon->num_contours = contours;
    polygon->hole = allocate<int>(contours);
    polygon->contour = allocate<gpc_vertex_list>(contours);
    return polygon;
}

void setContour(gpc_polygon& polygon, int index, const HT_ClipRgn& node, bool hole) {
    if (polygon.hole) {
        polygon.hole[index] = hole ? 1 : 0;
    }
    if (polygon.contour) {
        polygon.contour[index] = verticesOf(node);
    }
}

RgnListPtr nodeOf(const gpc_vertex_list& contour, bool hole) {
    RgnListPtr node(new HT_ClipRgn{hole ? HT_RGN_DIFF : HT_RGN_OR, nullptr, 0, nullptr});
    if (contour.num_vertices > 0 && contour.vertex) {
        node->points = new HT_Double_Point[static_cast<size_t>(contour.num_vertices)];
        node->pointCount = contour.num_vertices;
        std::transform(contour.vertex, contour.vertex + contour.num_vertices, node->points,
                       [](const gpc_vertex& vertex) {
                           return HT_Double_Point{vertex.x, vertex.y};
                       });
    }
    return node;
}

} // namespace

gpc_polygon* PolyAlgoOperator::convert_2_gpc_polygon(HT_ClipRgn* rgn) {
    int contours = 0;
    for (const HT_ClipRgn* node = rgn; node; node = node->next) {
        ++contours;
    }
    GpcPolygonPtr polygon = makePolygon(contours);
    int index = 0;
    for (const HT_ClipRgn* node = rgn; node; node = node->next) {
        setContour(*polygon, index, *node, index > 0 && node->mode == HT_RGN_DIFF);
        ++index;
    }
    return polygon.release();
}

gpc_polygon* PolyAlgoOperator::convert_2_gpc_polygon_simple(HT_ClipRgn* rgn) {
    if (!rgn) {
        return makePolygon(0).release();
    }
    GpcPolygonPtr polygon = makePolygon(1);
    setContour(*polygon, 0, *rgn, false);
    return polygon.release();
}

HT_ClipRgn* PolyAlgoOperator::convert_2_Clip_Rgn(gpc_polygon* polygon) {
    if (!polygon || !polygon->contour) {
        return nullptr;
    }
    RgnListPtr list;
    HT_ClipRgn* last = nullptr;
    for (int i = 0; i < polygon->num_contours; ++i) {
        RgnListPtr node = nodeOf(polygon->contour[i], polygon->hole && polygon->hole[i]);
        HT_ClipRgn* const added = node.get();
        if (last) {
            last->next = node.release();
        } else {
            list = std::move(node);
        }
        last = added;
    }
    return list.release();
}
