// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"
#include "plot/shape/EntityCurves.h"

namespace kelplot {

namespace {

void stroke(const std::optional<EllipticArc>& arc, const EntityStyle& style, PlotTools& tools) {
    if (arc) {
        tools.useLinePen(style);
        tools.canvas.drawArc(*arc);
    }
}

} // namespace

void draw(const Circle& circle, const PlacedEntity& place, PlotTools& tools) {
    stroke(arcOf(circle, place.map), place.style, tools);
}

void draw(const Arc& arc, const PlacedEntity& place, PlotTools& tools) {
    stroke(arcOf(arc, place.map), place.style, tools);
}

void draw(const Ellipse& ellipse, const PlacedEntity& place, PlotTools& tools) {
    stroke(arcOf(ellipse, place.entity.extrusion, place.map), place.style, tools);
}

void draw(const Spline& spline, const PlacedEntity& place, PlotTools& tools) {
    if (const auto curve = curveOf(spline, place.map)) {
        std::vector<Vec2> path;
        tools.useLinePen(place.style);
        curve->flatten(tools.canvas.flattening(), path);
        tools.canvas.drawPolyline(path);
    }
}

Box2 boxOf(const Circle& circle, const MeasuredEntity& place) {
    return boxOfArc(arcOf(circle, place.map), place.curves);
}

Box2 boxOf(const Arc& arc, const MeasuredEntity& place) {
    return boxOfArc(arcOf(arc, place.map), place.curves);
}

Box2 boxOf(const Ellipse& ellipse, const MeasuredEntity& place) {
    return boxOfArc(arcOf(ellipse, place.entity.extrusion, place.map), place.curves);
}

Box2 boxOf(const Spline& spline, const MeasuredEntity& place) {
    return boxOfCurve(curveOf(spline, place.map), place.curves);
}

} // namespace kelplot
