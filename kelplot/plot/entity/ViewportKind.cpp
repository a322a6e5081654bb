// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/ViewportKind.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geometry/Crossings.h"
#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"
#include "plot/shape/HatchLoops.h"

namespace kelplot {

namespace {

std::array<Vec3, 4> cornersOf(const Viewport& viewport) {
    const double x = viewport.width / 2.0;
    const double y = viewport.height / 2.0;
    const Vec3& center = viewport.center;
    return {center + Vec3{-x, -y, 0.0}, center + Vec3{x, -y, 0.0}, center + Vec3{x, y, 0.0}, center + Vec3{-x, y, 0.0}};
}

} // namespace

double scaleOf(const Viewport& viewport) {
    return viewport.viewHeight > 0.0 ? viewport.height / viewport.viewHeight : 0.0;
}

PlanMap viewOf(const Viewport& viewport) {
    const Frame3 frame = frameOfPlane(viewport.viewDirection);
    const double scale = scaleOf(viewport);
    const Vec2 across = Vec2{std::cos(viewport.twist), std::sin(viewport.twist)} * scale;
    const Vec2 up = leftNormal(across);
    // Each axis of the world as the plane of the view shows it, turned and scaled to the sheet.
    const auto seen = [&](double x, double y) {
        return across * x + up * y;
    };
    PlanMap map;
    map.x = seen(frame.x.x, frame.y.x);
    map.y = seen(frame.x.y, frame.y.y);
    map.z = seen(frame.x.z, frame.y.z);
    const Vec2 target = map.mapDirection(viewport.viewTarget);
    map.origin = Vec2{viewport.center.x, viewport.center.y} - viewport.viewCenter * scale - target;
    return map;
}

bool losesBorder(const Viewport& viewport) {
    if (!viewport.clip) {
        return viewport.lostBorder;
    }
    constexpr double fineness = 1e-3; // of the viewport, with which curves are followed
    const double size = std::max({std::abs(viewport.width), std::abs(viewport.height), 1e-6});
    const Vec2 center{viewport.center.x, viewport.center.y};
    const Flattening rules{fineness * size, Box2{center, center}.inflated(size)};
    return crossingsIn(loopPoints(*viewport.clip, PlanMap(), rules)) > mostCrossings;
}

std::vector<Vec2> borderOf(const Viewport& viewport, const PlanMap& map, const Flattening& rules) {
    if (viewport.clip && !losesBorder(viewport)) {
        return loopPoints(*viewport.clip, map, rules);
    }
    std::vector<Vec2> points;
    for (const Vec3& corner : cornersOf(viewport)) {
        points.push_back(map.mapPoint(corner));
    }
    return points;
}

/// Its frame; a border of another shape is an entity of its own.
void draw(const Viewport& viewport, const PlacedEntity& place, PlotTools& tools) {
    if (!viewport.clip) {
        tools.useLinePen(place.style);
        tools.canvas.drawOutline(borderOf(viewport, place.map, tools.canvas.flattening()));
    }
}

Box2 boxOf(const Viewport& viewport, const MeasuredEntity& place) {
    const std::array<Vec3, 4> corners = cornersOf(viewport);
    return boxOfPoints(corners.data(), corners.size(), place.map);
}

} // namespace kelplot
