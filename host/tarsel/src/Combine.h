// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <optional>
#include <vector>

#include "Contours.h"
#include "Conversion.h"
#include "gpc.h"

namespace tarsel {

/// A result on the grid, and the way back from there.
struct Combination {
    Conversion conversion;
    std::vector<Contour> contours;
};

/// The Boolean combination of two polygons under the even-odd rule; throws when memory runs out.
///
/// @param subject, clip  null counts as no contours; only read
/// @return nothing for an unknown operation and for operands that enclose nothing
std::optional<Combination> combine(gpc_op op, const gpc_polygon* subject, const gpc_polygon* clip);

} // namespace tarsel
