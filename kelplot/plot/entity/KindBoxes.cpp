// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/KindBoxes.h"

#include <algorithm>

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

Box2 boxOfArc(const std::optional<EllipticArc>& arc) {
    return arc ? arc->box() : Box2{};
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

Box2 boxOfSegments(const std::vector<PolylineSegment>& segments, const PlanMap& map) {
    Box2 box;
    for (const PolylineSegment& segment : segments) {
        if (const auto arc = segment.arc()) {
            const EllipticArc mapped = mapArc(*arc, segment.from.position.z, map);
            box.add(mapped.isFinite() ? mapped.box() : Box2{});
        } else {
            addFinite(map.mapPoint(segment.from.position), box);
            addFinite(map.mapPoint(segment.to.position), box);
        }
    }
    return box;
}

} // namespace kelplot
