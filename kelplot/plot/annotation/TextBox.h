// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>

#include "geometry/Interval.h"
#include "geometry/Vec.h"

namespace kelplot {

/// The rectangle that a text covers.
struct TextBox {
    Vec2 middle;
    Vec2 along{1.0, 0.0}; ///< direction of its lines
    Vec2 halfSize;

    /// Half its length in a direction, as the distance between two lines across that direction that hold it.
    double halfExtent(Vec2 direction) const;

    /// The distances from `start` along `direction` within the box, widened by `margin`; empty where the line passes
    /// it.
    Interval onLine(Vec2 start, Vec2 direction, double margin) const;

    /// The angles seen from the middle of a circle within the box, widened by `margin`, as distances in radians from
    /// that of the box's own middle; empty where the circle passes it.
    Interval onCircle(Vec2 centre, double radius, double margin) const;
};

} // namespace kelplot
