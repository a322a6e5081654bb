// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "drawing/Entity.h"
#include "geometry/EllipticArc.h"
#include "geometry/PlanMap.h"

namespace kelplot {

/// The size on the sheet of a unit of the world, seen from the front; 0 where the viewport states no view.
double scaleOf(const Viewport& viewport);

/// The map from the world to the sheet through a viewport.
PlanMap viewOf(const Viewport& viewport);

/// Tells whether a viewport has a border of its own that cannot be cut along: one that is no curve, or a tangle.
bool losesBorder(const Viewport& viewport);

/// The border of a viewport on the page, seen through the sheet's `map`; its rectangle where it loses its own.
std::vector<Vec2> borderOf(const Viewport& viewport, const PlanMap& map, const Flattening& rules);

} // namespace kelplot
