// SPDX-License-Identifier: BSD-3-Clause
#include "RegionContours.h"

#include <limits>
#include <optional>

namespace vnbase {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr Box nowhere{{infinity, infinity}, {-infinity, -infinity}};

/// The join of an operation code; none for a code that leaves its contour out.
std::optional<Join> joinOf(int32_t mode) {
    switch (mode) {
    case HT_RGN_AND:
        return Join::And;
    case HT_RGN_COPY:
        return Join::Copy;
    case HT_RGN_DIFF:
        return Join::Diff;
    case HT_RGN_OR:
        return Join::Or;
    case HT_RGN_XOR:
        return Join::Xor;
    default:
        return std::nullopt;
    }
}

Contour contourOf(const HT_ClipRgn& node, Join join) {
    const bool encloses = node.points != nullptr && node.pointCount >= 3 &&
                          std::all_of(node.points, node.points + node.pointCount, [](const HT_Double_Point& p) {
                              return std::isfinite(p.x) && std::isfinite(p.y);
                          });
    return {join, node.points, encloses ? static_cast<size_t>(node.pointCount) : 0};
}

/// The node that starts the region: the first one that is no hole, or the first when all are.
const HT_ClipRgn* startOf(const HT_ClipRgn* region) {
    const HT_ClipRgn* node = region;
    while (node != nullptr && node->mode == HT_RGN_DIFF) {
        node = node->next;
    }
    return node != nullptr ? node : region;
}

Box boxOf(const Contour& contour) {
    Box box = nowhere;
    for (const HT_Double_Point* p = contour.points; p != contour.points + contour.count; ++p) {
        box = {{std::min(box.low.x, p->x), std::min(box.low.y, p->y)},
               {std::max(box.high.x, p->x), std::max(box.high.y, p->y)}};
    }
    return box;
}

Box unionOf(const Box& a, const Box& b) {
    return {{std::min(a.low.x, b.low.x), std::min(a.low.y, b.low.y)},
            {std::max(a.high.x, b.high.x), std::max(a.high.y, b.high.y)}};
}

Box joinedReach(const Box& before, const Contour& contour) {
    const Box box = contour.count == 0 ? nowhere : boxOf(contour);
    switch (contour.join) {
    case Join::And:
        return intersection(before, box);
    case Join::Copy:
        return box;
    case Join::Diff:
        return before;
    case Join::Or:
    case Join::Xor:
        return unionOf(before, box);
    }
    return before;
}

} // namespace

std::vector<Contour> decidingContours(const HT_ClipRgn* region) {
    std::vector<Contour> contours;
    const HT_ClipRgn* start = startOf(region);
    if (start == nullptr) {
        return contours;
    }
    contours.push_back(contourOf(*start, Join::Copy));
    for (const HT_ClipRgn* node = region->next; node != nullptr; node = node->next) {
        const HT_ClipRgn& source = node == start ? *region : *node; // these two have changed places
        const std::optional<Join> join = joinOf(source.mode);
        if (!join) {
            continue;
        }
        if (join == Join::Copy) {
            contours.clear();
        }
        contours.push_back(contourOf(source, *join));
    }
    return contours;
}

Box reachOf(const std::vector<Contour>& contours) {
    Box reach = nowhere;
    for (const Contour& contour : contours) {
        reach = joinedReach(reach, contour);
        if (reach.isEmpty()) {
            reach = nowhere; // an inverted box must not grow a later union
        }
    }
    return reach;
}

} // namespace vnbase
