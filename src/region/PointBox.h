// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "keldriver/Types.h"

namespace KelDriver::Internal {

/// The bounding box of one point.
inline HT_Double_Rectangle boxOf(const HT_Double_Point& point) {
    return {point.x, point.y, point.x, point.y};
}

/// Widens `box` so that it holds `point`; a coordinate that is not a number leaves its side as it is.
inline void growBox(HT_Double_Rectangle& box, const HT_Double_Point& point) {
    if (point.x < box.minX) {
        box.minX = point.x;
    } else if (point.x > box.maxX) {
        box.maxX = point.x;
    }
    if (point.y < box.minY) {
        box.minY = point.y;
    } else if (point.y > box.maxY) {
        box.maxY = point.y;
    }
}

} // namespace KelDriver::Internal
