// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/TextBox.h"

#include <array>
#include <cmath>
#include <limits>

namespace kelplot {

namespace {

constexpr Interval nothing{1.0, 0.0};

} // namespace

double TextBox::halfExtent(Vec2 direction) const {
    return std::abs(dot(direction, along)) * halfSize.x + std::abs(cross(direction, along)) * halfSize.y;
}

Interval TextBox::onLine(Vec2 start, Vec2 direction, double margin) const {
    constexpr double endless = std::numeric_limits<double>::infinity();
    const Vec2 toStart = start - middle;
    const Vec2 up = leftNormal(along);
    const Vec2 half{halfSize.x + margin, halfSize.y + margin};
    Interval range{-endless, endless};
    narrowToSlab(dot(toStart, along), dot(direction, along), {-half.x, half.x}, range);
    narrowToSlab(dot(toStart, up), dot(direction, up), {-half.y, half.y}, range);
    return range.low < range.high ? range : nothing;
}

Interval TextBox::onCircle(Vec2 centre, double radius, double margin) const {
    const Vec2 toMiddle = middle - centre;
    const Vec2 across = along * (halfSize.x + margin);
    const Vec2 up = leftNormal(along) * (halfSize.y + margin);
    const std::array<Vec2, 4> corners = {toMiddle - across - up, toMiddle + across - up, toMiddle + across + up,
                                         toMiddle - across + up};
    constexpr double endless = std::numeric_limits<double>::infinity();
    Interval angles{endless, -endless};
    for (size_t i = 0; i < corners.size(); ++i) {
        // Where the side from + t * side has the distance of the radius from the middle of the circle.
        const Vec2 from = corners[i];
        const Vec2 side = corners[(i + 1) % corners.size()] - from;
        const double square = dot(side, side);
        const double half = dot(from, side);
        const double root = std::sqrt(half * half - square * (dot(from, from) - radius * radius));
        for (const double t : {(-half - root) / square, (-half + root) / square}) {
            if (t >= 0.0 && t <= 1.0) { // false where there is no root
                const Vec2 p = from + side * t;
                const double angle = std::atan2(cross(toMiddle, p), dot(toMiddle, p));
                angles = {std::min(angles.low, angle), std::max(angles.high, angle)};
            }
        }
    }
    return angles.low < angles.high ? angles : nothing;
}

} // namespace kelplot
