// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "drawing/Entity.h"
#include "geometry/EllipticArc.h"
#include "geometry/Nurbs.h"

namespace kelplot {

// The curves of the drawing's records as they look through a map. A curve that cannot be drawn, because its numbers are
// not finite or its radius is not positive, gives nothing.

std::optional<EllipticArc> arcOf(const Circle& circle, const PlanMap& map);
std::optional<EllipticArc> arcOf(const Arc& arc, const PlanMap& map);
/// @param extrusion  the direction about which the ellipse runs counter-clockwise
std::optional<EllipticArc> arcOf(const Ellipse& ellipse, const Vec3& extrusion, const PlanMap& map);

/// The arc of a hatch's boundary, always from its start to its end.
std::optional<EllipticArc> arcOf(const HatchArc& arc, const PlanMap& map);
std::optional<EllipticArc> arcOf(const HatchEllipse& ellipse, const PlanMap& map);

/// The curve of a spline. One that is given by points alone, or with knots or weights that do not fit,
/// gets the knots and weights that come closest to what was meant.
std::optional<NurbsCurve> curveOf(const Spline& spline, const PlanMap& map);

} // namespace kelplot
