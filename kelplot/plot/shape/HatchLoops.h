// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "drawing/Entity.h"
#include "geometry/EllipticArc.h"

namespace kelplot {

/// The boundary of a hatch as a closed polyline, seen through `map`; empty when nothing of it is finite.
std::vector<Vec2> loopPoints(const HatchLoop& loop, const PlanMap& map, const Flattening& rules);

} // namespace kelplot
