// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cmath>
#include <cstdint>

namespace KelDriver::Internal {

/// Angles in radians.
constexpr double quarterTurn = 1.5707963267948966;
constexpr double halfTurn = 3.141592653589793;
constexpr double fullTurn = 6.283185307179586;
constexpr double radiansPerDegree = 0.017453292519943295;
constexpr double degreesPerRadian = 57.29577951308232;

/// Lengths and angles closer than this count as equal wherever this library compares geometry.
constexpr double geometricTolerance = 1e-10;

/// Cuts off the fraction, saturating at the ends of the range; NaN gives 0.
inline int32_t truncateToInt32(double value) {
    if (std::fabs(value) < 2147483648.0) { // ordinary values pass after one comparison
        return static_cast<int32_t>(value);
    }
    if (std::isnan(value)) {
        return 0;
    }
    return value > 0.0 ? INT32_MAX : INT32_MIN;
}

/// Rounds to the nearest integer, halves away from zero, saturating at the ends of the range; NaN gives 0.
///
/// Every rounding of a double to a device integer in this library goes through here, so that lines, polygons
/// and points at the same place meet on the same pixel. An arc rounds its centre and its radii separately, so it may
/// miss such a place by a pixel.
inline int32_t roundToInt32(double value) {
    return truncateToInt32(value + std::copysign(0.5, value));
}

/// Rounds to the nearest integer, halves up, also those of negative values; saturates, and NaN gives 0.
inline int32_t roundHalfUpToInt32(double value) {
    return truncateToInt32(std::floor(value + 0.5));
}

} // namespace KelDriver::Internal
