// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cmath>

#include "geometry/Vec.h"

namespace kelplot {

/// The direction of `v` in radians, counter-clockwise from the x axis in a frame with y upwards.
inline double angleOf(Vec2 v) {
    return std::atan2(v.y, v.x);
}

/// The vector of the length 1 in the direction of `angle`, in radians.
inline Vec2 unitVector(double angle) {
    return {std::cos(angle), std::sin(angle)};
}

} // namespace kelplot
