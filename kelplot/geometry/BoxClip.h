// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "geometry/Box2.h"

namespace kelplot {

/// The pieces of an open polyline that lie in `box`, each of at least two points.
std::vector<std::vector<Vec2>> clipPolyline(const std::vector<Vec2>& points, const Box2& box);

/// A polygon that covers, by the even-odd rule, the part of `points` in `box`; empty where its own box lies on the
/// border. It may run back and forth on the border of the box.
std::vector<Vec2> clipPolygon(const std::vector<Vec2>& points, const Box2& box);

} // namespace kelplot
