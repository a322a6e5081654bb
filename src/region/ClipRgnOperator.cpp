// SPDX-License-Identifier: BSD-3-Clause
#include <optional>
#include <utility>

#include "keldriver/VornRgn.h"
#include "region/GpcPolygon.h"
#include "region/RgnList.h"

using namespace KelDriver::Internal;

namespace {

GpcPolygonPtr polygonOf(HT_ClipRgn* node) {
    return GpcPolygonPtr(PolyAlgoOperator::convert_2_gpc_polygon_simple(node));
}

/// The clipper's operation for a mode; none for a copy, for a mode with bracket bits and for one that is unknown.
std::optional<gpc_op> operationOf(int mode) {
    switch (mode) {
    case HT_RGN_AND:
        return GPC_INT;
    case HT_RGN_DIFF:
        return GPC_DIFF;
    case HT_RGN_OR:
        return GPC_UNION;
    case HT_RGN_XOR:
        return GPC_XOR;
    default:
        return std::nullopt;
    }
}

/// Joins the contours from left to right.
GpcPolygonPtr evaluate(HT_ClipRgn* list) {
    GpcPolygonPtr result = polygonOf(list);
    for (HT_ClipRgn* node = list->next; node; node = node->next) {
        if (node->mode == HT_RGN_COPY) {
            result = polygonOf(node);
        } else if (const auto operation = operationOf(node->mode)) {
            result = combine(*operation, result, polygonOf(node));
        }
    }
    return result;
}

} // namespace

HT_ClipRgn* PolyAlgoOperator::ClipRgnOperator(HT_ClipRgn* rgn) {
    if (!rgn || !rgn->next) {
        return rgn;
    }
    OrderBorder(rgn);
    const GpcPolygonPtr polygon = evaluate(rgn);
    const bool isEmpty = !polygon->hole || !polygon->contour;
    const RgnListPtr result(isEmpty ? nullptr : convert_2_Clip_Rgn(polygon.get()));

    const RgnListPtr oldRest(std::exchange(rgn->next, nullptr));
    const RgnListPtr oldFirst(new HT_ClipRgn(*rgn)); // takes the old points along
    *rgn = {HT_RGN_OR, nullptr, 0, nullptr};
    if (result) {
        OrderBorder(result.get());
        rgn->pointCount = result->pointCount;
        rgn->points = std::exchange(result->points, nullptr);
        rgn->next = std::exchange(result->next, nullptr);
    }
    return rgn;
}

void OrderBorder(HT_ClipRgn* rgn) {
    if (!rgn || rgn->mode != HT_RGN_DIFF) {
        return;
    }
    HT_ClipRgn* outer = rgn->next;
    while (outer && outer->mode == HT_RGN_DIFF) {
        outer = outer->next;
    }
    if (outer) {
        std::swap(*rgn, *outer);
        std::swap(rgn->next, outer->next); // the links stay
    }
}
