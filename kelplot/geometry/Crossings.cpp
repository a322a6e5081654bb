// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/Crossings.h"

#include <algorithm>

#include "geometry/Box2.h"

namespace kelplot {

namespace {

struct Side {
    Vec2 from, to;

    double left() const { return std::min(from.x, to.x); }
    double right() const { return std::max(from.x, to.x); }
};

/// Whether two points lie on different sides of the line that `side` is part of, and neither on it.
bool parts(const Side& side, Vec2 p, Vec2 q) {
    const double atP = cross(side.to - side.from, p - side.from);
    const double atQ = cross(side.to - side.from, q - side.from);
    return (atP < 0.0 && atQ > 0.0) || (atP > 0.0 && atQ < 0.0);
}

/// Ends that touch do not count.
bool doCross(const Side& a, const Side& b) {
    return parts(a, b.from, b.to) && parts(b, a.from, a.to);
}

bool isFinite(const std::vector<Vec2>& polygon) {
    return std::all_of(polygon.begin(), polygon.end(), [](Vec2 corner) { return corner.isFinite(); });
}

} // namespace

size_t crossingsIn(const std::vector<Vec2>& polygon) {
    constexpr size_t mostComparisons = 500'000; // borders of many corners have short sides, with few others above them
    constexpr size_t tooMany = mostCrossings + 1;
    if (!isFinite(polygon)) {
        return tooMany;
    }
    std::vector<Side> sides;
    sides.reserve(polygon.size());
    for (size_t i = 0; i < polygon.size(); ++i) {
        sides.push_back({polygon[i], polygon[(i + 1) % polygon.size()]});
    }
    std::sort(sides.begin(), sides.end(), [](const Side& a, const Side& b) { return a.left() < b.left(); });
    size_t crossings = 0;
    size_t comparisons = 0;
    for (size_t i = 0; i < sides.size() && crossings <= mostCrossings; ++i) {
        for (size_t j = i + 1; j < sides.size() && sides[j].left() <= sides[i].right(); ++j) {
            crossings += doCross(sides[i], sides[j]) ? 1 : 0;
            if (++comparisons > mostComparisons) {
                return tooMany;
            }
        }
    }
    return crossings;
}

std::vector<Vec2> boxAround(const std::vector<Vec2>& border) {
    Box2 box;
    for (const Vec2 corner : border) {
        box.add(corner);
    }
    if (border.empty() || !isFinite(border)) {
        return {};
    }
    const auto corners = box.corners();
    return {corners.begin(), corners.end()};
}

} // namespace kelplot
