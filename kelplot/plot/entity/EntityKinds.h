// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "drawing/Drawing.h"
#include "geometry/Box2.h"
#include "geometry/PlanMap.h"
#include "plot/entity/EntityStyle.h"
#include "plot/text/Typesetter.h"
#include "settings/PatternTable.h"

namespace kelplot {

class PlotTools;

/// An entity in its place on a plot.
struct PlacedEntity {
    const Entity& entity;
    const EntityStyle& style;
    const PlanMap& map; ///< from the entity's own coordinates to device units
};

// How each kind is drawn. A kind whose record becomes part of `Geometry` needs its row here and below; the sources
// of this folder hold one kind, or a few of a family, each.

void draw(const PointEntity& point, const PlacedEntity& place, PlotTools& tools);
void draw(const Line& line, const PlacedEntity& place, PlotTools& tools);
void draw(const ConstructionLine& line, const PlacedEntity& place, PlotTools& tools);
void draw(const Circle& circle, const PlacedEntity& place, PlotTools& tools);
void draw(const Arc& arc, const PlacedEntity& place, PlotTools& tools);
void draw(const Ellipse& ellipse, const PlacedEntity& place, PlotTools& tools);
void draw(const Spline& spline, const PlacedEntity& place, PlotTools& tools);
void draw(const Polyline& polyline, const PlacedEntity& place, PlotTools& tools);
void draw(const Solid& solid, const PlacedEntity& place, PlotTools& tools);
void draw(const Face3d& face, const PlacedEntity& place, PlotTools& tools);
void draw(const Hatch& hatch, const PlacedEntity& place, PlotTools& tools);
void draw(const Text& text, const PlacedEntity& place, PlotTools& tools);
void draw(const MText& text, const PlacedEntity& place, PlotTools& tools);
void draw(const Image& image, const PlacedEntity& place, PlotTools& tools);
void draw(const Wipeout& wipeout, const PlacedEntity& place, PlotTools& tools);
void draw(const Mline& mline, const PlacedEntity& place, PlotTools& tools);
void draw(const Mesh& mesh, const PlacedEntity& place, PlotTools& tools);
void draw(const Viewport& viewport, const PlacedEntity& place, PlotTools& tools); // its frame
inline void draw(const Unplotted& /*entity*/, const PlacedEntity& /*place*/, PlotTools& /*tools*/) {
}
inline void draw(const Insert& /*reference*/, const PlacedEntity& /*place*/, PlotTools& /*tools*/) {
} // walked into

/// What of an entity a plot leaves out, for a message; empty where that is nothing.
std::string unplottedPart(const Entity& entity, const Drawing& drawing, const PatternTable& patterns);

/// Tells whether an entity has lines, which may be of some line type.
bool hasLines(const Entity& entity);

/// How exact the box of a curve is.
enum class CurveBox {
    hull, ///< that of what shapes the curve, such as its control points: quick, never too small
    exact ///< that of the curve
};

/// An entity that is to be measured.
struct MeasuredEntity {
    const Entity& entity;
    const PlanMap& map; ///< from the entity's own coordinates to those of the box
    CurveBox curves;
    const Typesetter& texts; ///< lays out those of the drawing
};

// What each kind covers, without the width that its line weight adds; empty when it has nothing that can be drawn.

Box2 boxOf(const PointEntity& point, const MeasuredEntity& place);
Box2 boxOf(const Line& line, const MeasuredEntity& place);
Box2 boxOf(const ConstructionLine& line, const MeasuredEntity& place);
Box2 boxOf(const Circle& circle, const MeasuredEntity& place);
Box2 boxOf(const Arc& arc, const MeasuredEntity& place);
Box2 boxOf(const Ellipse& ellipse, const MeasuredEntity& place);
Box2 boxOf(const Spline& spline, const MeasuredEntity& place);
Box2 boxOf(const Polyline& polyline, const MeasuredEntity& place);
Box2 boxOf(const Solid& solid, const MeasuredEntity& place);
Box2 boxOf(const Face3d& face, const MeasuredEntity& place);
Box2 boxOf(const Hatch& hatch, const MeasuredEntity& place);
Box2 boxOf(const Text& text, const MeasuredEntity& place);
Box2 boxOf(const MText& text, const MeasuredEntity& place);
Box2 boxOf(const Image& image, const MeasuredEntity& place);
Box2 boxOf(const Wipeout& wipeout, const MeasuredEntity& place);
Box2 boxOf(const Mline& mline, const MeasuredEntity& place);
Box2 boxOf(const Mesh& mesh, const MeasuredEntity& place);
Box2 boxOf(const Viewport& viewport, const MeasuredEntity& place);
inline Box2 boxOf(const Unplotted& /*entity*/, const MeasuredEntity& /*place*/) {
    return {};
}
inline Box2 boxOf(const Insert& /*reference*/, const MeasuredEntity& /*place*/) {
    return {};
}

/// What an entity of any kind covers.
inline Box2 boxOf(const MeasuredEntity& place) {
    return visitGeometry([&](const auto& geometry) { return boxOf(geometry, place); }, place.entity);
}

} // namespace kelplot
