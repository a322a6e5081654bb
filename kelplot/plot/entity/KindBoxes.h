// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "geometry/Box2.h"
#include "geometry/EllipticArc.h"
#include "geometry/Nurbs.h"
#include "geometry/PlanMap.h"
#include "plot/entity/EntityKinds.h"
#include "plot/shape/PolylinePath.h"

namespace kelplot {

// The boxes that the kinds of entities are measured by. What is not finite counts for nothing.

Box2 boxOfPoints(const Vec3* points, size_t count, const PlanMap& map);
Box2 boxOfPoints(const std::vector<Vec2>& points);
Box2 boxOfArc(const std::optional<EllipticArc>& arc, CurveBox precision);
Box2 boxOfCurve(const std::optional<NurbsCurve>& curve, CurveBox precision);
/// Of the segments' middle lines, without their widths.
Box2 boxOfSegments(const std::vector<PolylineSegment>& segments, const PlanMap& map, CurveBox precision);

} // namespace kelplot
