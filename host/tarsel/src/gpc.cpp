// SPDX-License-Identifier: BSD-3-Clause
#include "gpc.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <vector>

#include "Combine.h"

// The C boundary: memory that callers release, and no exception past here.

namespace {

constexpr gpc_polygon emptyPolygon{0, nullptr, nullptr};

template <typename Item>
Item* allocate(size_t count) {
    return static_cast<Item*>(tarsel_malloc(count * sizeof(Item)));
}

/// Copies a contour to the end of a polygon whose arrays have room for it.
bool append(gpc_polygon& polygon, const tarsel::Contour& contour, tarsel::Conversion& conversion) {
    auto* vertices = allocate<gpc_vertex>(contour.path.size());
    if (!vertices) {
        return false;
    }
    std::transform(contour.path.begin(), contour.path.end(), vertices,
                   [&](const ClipperLib::IntPoint& point) { return conversion.fromGrid(point); });
    polygon.hole[polygon.num_contours] = contour.hole ? 1 : 0;
    polygon.contour[polygon.num_contours] = {static_cast<int>(contour.path.size()), vertices};
    ++polygon.num_contours;
    return true;
}

/// The result in arrays of the boundary; the empty polygon when memory runs out.
gpc_polygon toPolygon(tarsel::Combination& combination) {
    const std::vector<tarsel::Contour>& contours = combination.contours;
    if (contours.empty()) {
        return emptyPolygon;
    }
    gpc_polygon polygon{0, allocate<int>(contours.size()), allocate<gpc_vertex_list>(contours.size())};
    const bool whole = polygon.hole && polygon.contour &&
                       std::all_of(contours.begin(), contours.end(), [&](const tarsel::Contour& contour) {
                           return append(polygon, contour, combination.conversion);
                       });
    if (!whole) {
        gpc_free_polygon(&polygon);
    }
    return polygon;
}

} // namespace

void gpc_polygon_clip(gpc_op op, gpc_polygon* subject_polygon, gpc_polygon* clip_polygon, gpc_polygon* result_polygon) {
    if (!result_polygon) {
        return;
    }
    gpc_polygon result = emptyPolygon;
    try {
        auto combination = tarsel::combine(op, subject_polygon, clip_polygon);
        if (combination) {
            result = toPolygon(*combination);
        }
    } catch (const std::exception&) {
        result = emptyPolygon; // out of memory: the interface has no other answer for it
    }
    *result_polygon = result;
}

void gpc_free_polygon(gpc_polygon* polygon) {
    if (!polygon) {
        return;
    }
    for (int i = 0; polygon->contour && i < polygon->num_contours; ++i) {
        std::free(polygon->contour[i].vertex);
    }
    std::free(polygon->contour);
    std::free(polygon->hole);
    *polygon = emptyPolygon;
}

void* tarsel_malloc(size_t size) {
    return std::malloc(size);
}
