// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>
#include <cmath>

#include "geometry/EvenOddJoin.h"
#include "geometry/LoopNesting.h"
#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"
#include "plot/shape/EntityCurves.h"
#include "plot/shape/HatchLoops.h"

namespace kelplot {

namespace {

/// Rounds points to the device's grid, as the renderer would anyway, so that it is certain which loops touch.
void snapToGrid(std::vector<Vec2>& points) {
    for (Vec2& point : points) {
        point = {std::round(point.x), std::round(point.y)};
    }
    points.erase(std::unique(points.begin(), points.end()), points.end());
}

Box2 boxOfEdge(const HatchEdge& edge, const PlanMap& map, CurveBox curves) {
    if (const auto* arc = std::get_if<HatchArc>(&edge)) {
        return boxOfArc(arcOf(*arc, map));
    }
    if (const auto* ellipse = std::get_if<HatchEllipse>(&edge)) {
        return boxOfArc(arcOf(*ellipse, map));
    }
    if (const auto* spline = std::get_if<HatchSpline>(&edge)) {
        return boxOfCurve(curveOf(spline->curve, map), curves);
    }
    const auto& line = std::get<HatchLine>(edge);
    const Vec3 ends[] = {{line.start.x, line.start.y, 0.0}, {line.end.x, line.end.y, 0.0}};
    return boxOfPoints(ends, 2, map);
}

} // namespace

void draw(const Hatch& hatch, const PlacedEntity& place, PlotTools& tools) {
    if (!hatch.solid) {
        return;
    }
    std::vector<AreaLoop> loops;
    const PlanMap map = place.map.raised(hatch.elevation);
    for (const HatchLoop& loop : hatch.loops) {
        std::vector<Vec2> points = tools.canvas.visiblePart(loopPoints(loop, map, tools.canvas.flattening()));
        snapToGrid(points);
        if (points.size() > 2) {
            loops.push_back({std::move(points), loop.textBox});
        }
    }
    if (hatch.style != HatchStyle::normal) {
        dropNested(loops, hatch.style == HatchStyle::outer ? 1 : 0);
    }
    tools.useFill(place.style);
    for (const std::vector<Vec2>& polygon : joinEvenOdd(loops)) {
        tools.canvas.fillPolygon(polygon);
    }
}

Box2 boxOf(const Hatch& hatch, const MeasuredEntity& place) {
    Box2 box;
    if (!hatch.solid) { // patterns are not drawn
        return box;
    }
    const PlanMap map = place.map.raised(hatch.elevation);
    for (const HatchLoop& loop : hatch.loops) {
        for (const HatchEdge& edge : loop.edges) {
            box.add(boxOfEdge(edge, map, place.curves));
        }
        if (loop.edges.empty()) {
            box.add(boxOfSegments(segmentsOf(loop.polyline, true), map));
        }
    }
    return box;
}

void draw(const Solid& solid, const PlacedEntity& place, PlotTools& tools) {
    std::vector<Vec2> corners;
    for (const Vec3& corner : solid.corners) {
        corners.push_back(place.map.mapPoint(corner));
    }
    tools.useFill(place.style);
    tools.canvas.fillPolygon(corners);
}

Box2 boxOf(const Solid& solid, const MeasuredEntity& place) {
    return boxOfPoints(solid.corners.data(), solid.corners.size(), place.map);
}

} // namespace kelplot
