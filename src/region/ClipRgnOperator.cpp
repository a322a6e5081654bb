#include <iterator>
#include <utility>
#include <vector>

#include "keldriver/VornRgn.h"
#include "region/GpcPolygon.h"
#include "region/RgnList.h"

namespace {

using Nodes = std::vector<HT_ClipRgn*>;
using NodeIterator = Nodes::const_iterator;

GpcPolygonPtr polygonOf(HT_ClipRgn* node) {
    return GpcPolygonPtr(PolyAlgoOperator::convert_2_gpc_polygon_simple(node));
}

/// Unites the contours of two nodes or more half by half, so that the cost of many grows hardly faster than they do.
GpcPolygonPtr combineHalves(gpc_op op, NodeIterator first, NodeIterator last) {
    const auto count = std::distance(first, last);
    if (count == 1) {
        return polygonOf(*first);
    }
    const NodeIterator middle = first + count / 2;
    return combine(op, combineHalves(op, first, middle), combineHalves(op, middle, last));
}

/// Joins contours of one mode to what came before them.
GpcPolygonPtr join(GpcPolygonPtr before, int mode, const Nodes& run) {
    switch (mode) {
    case HT_RGN_AND:
        for (HT_ClipRgn* node : run) {
            before = combine(GPC_INT, before, polygonOf(node));
        }
        return before;
    case HT_RGN_COPY:
        return polygonOf(run.back());
    case HT_RGN_DIFF:
        return combine(GPC_DIFF, before, combineHalves(GPC_UNION, run.begin(), run.end()));
    case HT_RGN_OR:
        return combine(GPC_UNION, before, combineHalves(GPC_UNION, run.begin(), run.end()));
    case HT_RGN_XOR:
        return combine(GPC_XOR, before, combineHalves(GPC_XOR, run.begin(), run.end()));
    default: // with bracket bits, or of no known mode: skipped
        return before;
    }
}

GpcPolygonPtr evaluate(HT_ClipRgn* list) {
    GpcPolygonPtr result = polygonOf(list);
    Nodes run;
    for (HT_ClipRgn* node = list->next; node; node = node->next) {
        run.push_back(node);
        if (!node->next || node->next->mode != node->mode) {
            result = join(std::move(result), node->mode, run);
            run.clear();
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
