// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/shape/EntityCurves.h"

#include "base/Angles.h"
namespace kelplot {

namespace {

Vec3 level(Vec2 p) {
    return {p.x, p.y, 0.0};
}

std::optional<EllipticArc> drawable(const EllipticArc& arc) {
    const bool hasSize = arc.u.length() > 0.0 || arc.v.length() > 0.0;
    return arc.isFinite() && hasSize ? std::optional(arc) : std::nullopt;
}

std::optional<EllipticArc> roundArc(const Vec3& center, double radius, double start, double end, const PlanMap& map) {
    if (!(radius > 0.0)) {
        return std::nullopt;
    }
    return drawable({map.mapPoint(center), map.x * radius, map.y * radius, start, end});
}

std::vector<Vec2> mappedPoints(const std::vector<Vec3>& points, const PlanMap& map) {
    std::vector<Vec2> result;
    result.reserve(points.size());
    for (const Vec3& point : points) {
        const Vec2 mapped = map.mapPoint(point);
        if (mapped.isFinite()) {
            result.push_back(mapped);
        }
    }
    return result;
}

NurbsCurve curveFromControls(const Spline& spline, const std::vector<Vec2>& points) {
    NurbsCurve curve;
    const int possible = static_cast<int>(std::min<size_t>(points.size() - 1, NurbsCurve::maxDegree));
    curve.degree = std::clamp(spline.degree, 1, possible);
    const bool weighted = areUsableWeights(spline.weights, points.size());
    for (size_t i = 0; i < points.size(); ++i) {
        const double weight = weighted ? spline.weights[i] : 1.0;
        curve.controls.push_back({points[i] * weight, weight});
    }
    if (areUsableKnots(spline.knots, curve.degree, points.size())) {
        curve.knots = spline.knots;
    } else {
        curve.knots = clampedKnots(curve.degree, points.size());
    }
    return curve;
}

} // namespace

std::optional<EllipticArc> arcOf(const Circle& circle, const PlanMap& map) {
    return roundArc(circle.center, circle.radius, 0.0, turn, map);
}

std::optional<EllipticArc> arcOf(const Arc& arc, const PlanMap& map) {
    return roundArc(arc.center, arc.radius, arc.startAngle, endWithinTurn(arc.startAngle, arc.endAngle), map);
}

std::optional<EllipticArc> arcOf(const Ellipse& ellipse, const Vec3& extrusion, const PlanMap& map) {
    const Vec3 up = frameOfPlane(extrusion).z;
    const Vec3 minorAxis = cross(up, ellipse.majorAxis) * ellipse.ratio;
    return drawable({map.mapPoint(ellipse.center), map.mapDirection(ellipse.majorAxis), map.mapDirection(minorAxis),
                     ellipse.startParam, endWithinTurn(ellipse.startParam, ellipse.endParam)});
}

std::optional<EllipticArc> arcOf(const HatchArc& arc, const PlanMap& map) {
    return arcOf(Arc{level(arc.center), arc.radius, arc.startAngle, arc.endAngle}, map);
}

std::optional<EllipticArc> arcOf(const HatchEllipse& ellipse, const PlanMap& map) {
    return arcOf(
        Ellipse{level(ellipse.center), level(ellipse.majorAxis), ellipse.ratio, ellipse.startParam, ellipse.endParam},
        {0.0, 0.0, 1.0}, map);
}

std::optional<NurbsCurve> curveOf(const Spline& spline, const PlanMap& map) {
    const std::vector<Vec2> controls = mappedPoints(spline.controlPoints, map);
    if (controls.size() >= 2) {
        return curveFromControls(spline, controls);
    }
    std::vector<Vec2> points = mappedPoints(spline.fitPoints, map);
    points.erase(std::unique(points.begin(), points.end()), points.end());
    const bool repeatsStart = points.size() > 2 && points.front() == points.back();
    if (spline.closed && repeatsStart) {
        points.pop_back();
    }
    if (points.size() < 2) {
        return std::nullopt;
    }
    return curveThrough(points, spline.closed && points.size() > 2);
}

} // namespace kelplot
