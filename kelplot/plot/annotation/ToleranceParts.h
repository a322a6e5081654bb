// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "drawing/Annotation.h"
#include "geometry/Box2.h"

namespace kelplot {

/// The lines and texts of a frame with tolerances; none where it has places that are not finite.
///
/// @param bodies  what the texts in its cells cover about their positions
std::vector<Entity> tolerancePartsOf(const ToleranceFrame& frame, const std::vector<std::vector<Box2>>& bodies);

} // namespace kelplot
