// SPDX-License-Identifier: BSD-3-Clause
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

bool isEmpty(const GpcPolygonPtr& polygon) {
    return polygon->num_contours == 0;
}

/// As `combine`, without a call of the clipper where one operand alone tells the result.
GpcPolygonPtr combined(gpc_op op, GpcPolygonPtr subject, const GpcPolygonPtr& clip) {
    const bool keepsSubject = isEmpty(clip) && op != GPC_INT;
    return keepsSubject || (isEmpty(subject) && op == GPC_DIFF) ? std::move(subject) : combine(op, subject, clip);
}

/// Joins the contours of nodes of one mode half by half, so that the cost of many grows hardly faster than they do.
GpcPolygonPtr combineHalves(gpc_op op, NodeIterator first, NodeIterator last) {
    const auto count = std::distance(first, last);
    if (count == 1) {
        return polygonOf(*first);
    }
    const auto middle = first + count / 2;
    return combine(op, combineHalves(op, first, middle), combineHalves(op, middle, last));
}

/// What a stretch of unions, differences and exclusive ors does to what came before it: that loses `lost`, and then
/// `toggled` is joined to it by exclusive or. Such steps can be joined to one another before what came before is
/// known, so that long lists are halved whatever the order of their modes.
struct Step {
    GpcPolygonPtr lost;
    GpcPolygonPtr toggled;
};

bool isStep(int mode) {
    return mode == HT_RGN_OR || mode == HT_RGN_DIFF || mode == HT_RGN_XOR;
}

/// The step of a run of nodes of one mode.
Step stepOf(const Nodes& run) {
    const int mode = run.front()->mode;
    GpcPolygonPtr joined = combineHalves(mode == HT_RGN_XOR ? GPC_XOR : GPC_UNION, run.begin(), run.end());
    switch (mode) {
    case HT_RGN_DIFF:
        return {std::move(joined), makeGpcPolygon()};
    case HT_RGN_XOR:
        return {makeGpcPolygon(), std::move(joined)};
    default: { // HT_RGN_OR: taken out and put back
        GpcPolygonPtr copy = combine(GPC_UNION, joined, makeGpcPolygon());
        return {std::move(joined), std::move(copy)};
    }
    }
}

Step joinSteps(Step first, Step second) {
    GpcPolygonPtr toggled =
        combined(GPC_XOR, combined(GPC_DIFF, std::move(first.toggled), second.lost), second.toggled);
    return {combined(GPC_UNION, std::move(first.lost), second.lost), std::move(toggled)};
}

Step joinHalves(std::vector<Step>& steps, size_t first, size_t last) {
    if (last - first == 1) {
        return std::move(steps[first]);
    }
    const size_t middle = first + (last - first) / 2;
    return joinSteps(joinHalves(steps, first, middle), joinHalves(steps, middle, last));
}

/// Applies the steps gathered so far, of which none is left then.
GpcPolygonPtr applySteps(GpcPolygonPtr before, std::vector<Step>& steps) {
    if (steps.empty()) {
        return before;
    }
    const Step step = joinHalves(steps, 0, steps.size());
    steps.clear();
    // Through the clipper even if nothing is toggled: what came before may be a contour that crosses itself.
    return combine(GPC_XOR, combined(GPC_DIFF, std::move(before), step.lost), step.toggled);
}

/// Evaluates a list: runs of one mode are joined first, then the runs between two intersections or copies.
GpcPolygonPtr evaluate(HT_ClipRgn* list) {
    GpcPolygonPtr result = polygonOf(list);
    std::vector<Step> steps;
    Nodes run;
    for (HT_ClipRgn* node = list->next; node; node = node->next) {
        run.push_back(node);
        if (isStep(node->mode) && node->next && node->next->mode == node->mode) {
            continue;
        }
        if (isStep(node->mode)) {
            steps.push_back(stepOf(run));
        } else if (node->mode == HT_RGN_AND) {
            result = combine(GPC_INT, applySteps(std::move(result), steps), polygonOf(node));
        } else if (node->mode == HT_RGN_COPY) {
            steps.clear();
            result = polygonOf(node);
        } // with bracket bits, or of no known mode: skipped
        run.clear();
    }
    return applySteps(std::move(result), steps);
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
