// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <limits>

#include "geometry/Vec.h"

namespace kelplot {

/// An axis-parallel box, empty until a point is added.
struct Box2 {
    Vec2 min{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    Vec2 max{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

    bool isEmpty() const { return !(min.x <= max.x && min.y <= max.y); }
    double width() const { return isEmpty() ? 0.0 : max.x - min.x; }
    double height() const { return isEmpty() ? 0.0 : max.y - min.y; }
    Vec2 center() const { return {min.x / 2 + max.x / 2, min.y / 2 + max.y / 2}; }

    /// Tells whether the boxes share a point; touching counts.
    bool intersects(const Box2& other) const {
        return min.x <= other.max.x && other.min.x <= max.x && min.y <= other.max.y && other.min.y <= max.y;
    }
    bool contains(const Box2& other) const {
        return min.x <= other.min.x && other.max.x <= max.x && min.y <= other.min.y && other.max.y <= max.y;
    }
    /// What the boxes have in common; empty where they do not meet.
    Box2 intersected(const Box2& other) const {
        return {{std::max(min.x, other.min.x), std::max(min.y, other.min.y)},
                {std::min(max.x, other.max.x), std::min(max.y, other.max.y)}};
    }
    /// In order around the box.
    std::array<Vec2, 4> corners() const { return {min, Vec2{max.x, min.y}, max, Vec2{min.x, max.y}}; }
    Box2 inflated(double by) const { return {{min.x - by, min.y - by}, {max.x + by, max.y + by}}; }

    void add(Vec2 p) {
        min = {std::min(min.x, p.x), std::min(min.y, p.y)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y)};
    }
    void add(const Box2& other) {
        if (!other.isEmpty()) {
            add(other.min);
            add(other.max);
        }
    }
};

} // namespace kelplot
