// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "drawing/Annotation.h"

namespace kelplot {

/// The lines and texts of a frame with tolerances.
///
/// @param sizes  of the texts in its cells
std::vector<Entity> tolerancePartsOf(const ToleranceFrame& frame, const std::vector<std::vector<Vec2>>& sizes);

} // namespace kelplot
