// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <cmath>

namespace vnbase {

/// A point or a direction in the frame of a region.
struct Vec {
    double x;
    double y;
};

inline Vec operator-(const Vec& a, const Vec& b) {
    return {a.x - b.x, a.y - b.y};
}

inline double dot(const Vec& a, const Vec& b) {
    return a.x * b.x + a.y * b.y;
}

inline double cross(const Vec& a, const Vec& b) {
    return a.x * b.y - a.y * b.x;
}

/// The point at `t` on the way from `a` (0) to `b` (1).
inline Vec between(const Vec& a, const Vec& b, double t) {
    return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
}

/// An axis-parallel box; one without area counts as empty.
struct Box {
    Vec low;
    Vec high;

    bool isEmpty() const { return !(low.x < high.x && low.y < high.y); }
    bool holds(const Vec& p) const { return p.x >= low.x && p.x <= high.x && p.y >= low.y && p.y <= high.y; }
};

inline Box intersection(const Box& a, const Box& b) {
    return {{std::max(a.low.x, b.low.x), std::max(a.low.y, b.low.y)},
            {std::min(a.high.x, b.high.x), std::min(a.high.y, b.high.y)}};
}

} // namespace vnbase
