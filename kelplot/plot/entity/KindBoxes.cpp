// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/KindBoxes.h"

#include <algorithm>
#include <cmath>

namespace kelplot {

namespace {

void addFinite(Vec2 p, Box2& box) {
    if (p.isFinite()) {
        box.add(p);
    }
}

Box2 boxOfControls(const NurbsCurve& curve) {
    Box2 box;
    for (const NurbsCurve::Control& control : curve.controls) {
        addFinite(control.scaled * (1.0 / control.weight), box);
    }
    return box;
}

/// Adds a piece of at most half a circle: it lies between its chord and the chord's copies at the arc's height.
void addChordBox(const PolylineSegment& segment, const PlanMap& map, Box2& box) {
    const Vec2 height = leftNormal(segment.end() - segment.start()) * (segment.from.bulge / 2.0);
    const Vec2 moved = map.mapDirection(height);
    for (const Vec3& end : {segment.from.position, segment.to.position}) {
        const Vec2 mapped = map.mapPoint(end);
        addFinite(mapped, box);
        addFinite(mapped + moved, box);
        addFinite(mapped - moved, box);
    }
}

} // namespace

Box2 boxOfPoints(const Vec3* points, size_t count, const PlanMap& map) {
    Box2 box;
    for (size_t i = 0; i < count; ++i) {
        addFinite(map.mapPoint(points[i]), box);
    }
    return box;
}

Box2 boxOfPoints(const std::vector<Vec2>& points) {
    Box2 box;
    for (const Vec2 point : points) {
        addFinite(point, box);
    }
    return box;
}

Box2 boxOfArc(const std::optional<EllipticArc>& arc, CurveBox precision) {
    if (!arc) {
        return {};
    }
    return precision == CurveBox::hull ? arc->hull() : arc->box();
}

Box2 boxOfCurve(const std::optional<NurbsCurve>& curve, CurveBox precision) {
    if (!curve) {
        return {};
    }
    constexpr double relativeError = 1e-4;
    const Box2 hull = boxOfControls(*curve);
    const double tolerance = relativeError * std::max(hull.width(), hull.height());
    if (precision == CurveBox::hull || !(tolerance > 0.0)) {
        return hull;
    }
    std::vector<Vec2> points;
    curve->flatten({tolerance, hull}, points);
    return boxOfPoints(points);
}

Box2 boxOfSegments(const std::vector<PolylineSegment>& segments, const PlanMap& map, CurveBox precision) {
    Box2 box;
    for (const PolylineSegment& segment : segments) {
        const bool isShallow = std::abs(segment.from.bulge) <= 1.0;
        const auto arc = isShallow && precision == CurveBox::hull ? std::nullopt : segment.arc();
        if (arc) {
            const EllipticArc mapped = mapArc(*arc, segment.from.position.z, map);
            box.add(mapped.isFinite() ? mapped.box() : Box2{});
        } else {
            addChordBox(segment, map, box);
        }
    }
    return box;
}

} // namespace kelplot
