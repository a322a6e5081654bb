// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cmath>
#include <cstdint>

namespace vnbase {

/// Rounds to the nearest integer, halves away from zero, saturating at the ends of the range; NaN gives 0.
///
/// The library rounds device coordinates by the same rule, so that a clipped line keeps its pixels.
inline int32_t roundToInt32(double value) {
    const double away = value + std::copysign(0.5, value);
    if (std::fabs(away) < 2147483648.0) {
        return static_cast<int32_t>(away);
    }
    if (std::isnan(away)) {
        return 0;
    }
    return away > 0.0 ? INT32_MAX : INT32_MIN;
}

} // namespace vnbase
