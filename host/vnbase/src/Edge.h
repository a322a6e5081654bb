// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

#include "Vector.h"
#include "keldriver/Types.h"

namespace vnbase {

/// An edge of a contour.
struct Edge {
    Vec from; ///< in the region's frame, as is `to`
    Vec to;
    const HT_Double_Point* source; ///< where it starts, in plot units
    const HT_Double_Point* target; ///< where it ends, in plot units
    uint32_t contour;              ///< its number in the order of joining
};

} // namespace vnbase
