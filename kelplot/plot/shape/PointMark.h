// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "geometry/Vec.h"

namespace kelplot {

/// How a point is marked on paper.
struct PointMark {
    bool dot = false;
    std::vector<std::vector<Vec2>> lines; ///< relative to the point, y downwards
    double circleRadius = 0.0;            ///< 0: no circle
};

/// The mark for a drawing's point mode. Crosses reach `size` from the point, frames half of it.
PointMark pointMarkFor(int mode, double size);

/// Tells whether points show at all.
bool isPointVisible(int mode);

} // namespace kelplot
