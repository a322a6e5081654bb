// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "drawing/Entity.h"
#include "geometry/EllipticArc.h"
#include "geometry/PlanMap.h"

namespace kelplot {

/// The map from the world to the sheet through a viewport. It has an area only where the viewport states a view.
PlanMap viewOf(const Viewport& viewport);

/// The border of a viewport on the page, seen through the sheet's `map`.
std::vector<Vec2> borderOf(const Viewport& viewport, const PlanMap& map, const Flattening& rules);

} // namespace kelplot
