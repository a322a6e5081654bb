// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

namespace kelplot {

constexpr double turn = 6.283185307179586; ///< a full turn, in radians

/// Drawings state angles in degrees, and so do the library's fonts; everything in between uses radians.
constexpr double radiansFromDegrees(double degrees) {
    return degrees * (turn / 360.0);
}

constexpr double degreesFromRadians(double radians) {
    return radians * (360.0 / turn);
}

} // namespace kelplot
