// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "base/Boxed.h"
#include "drawing/Colour.h"
#include "drawing/Image.h"
#include "drawing/Text.h"
#include "geometry/Vec.h"

namespace kelplot {

/// Line weight in hundredths of a millimetre, or one of the negative marks below.
using LineWeight = int16_t;
constexpr LineWeight lineWeightByLayer = -1;
constexpr LineWeight lineWeightByBlock = -2;
constexpr LineWeight lineWeightDefault = -3;

/// How much a colour covers, from 0 to 255 for all, or one of the negative marks below.
using Opacity = int16_t;
constexpr Opacity opaque = 255;
constexpr Opacity opacityByLayer = -1;
constexpr Opacity opacityByBlock = -2;

/// Marks for a line type or a block that is given by rule or not at all, instead of an index.
constexpr uint32_t lineTypeByLayer = std::numeric_limits<uint32_t>::max();
constexpr uint32_t lineTypeByBlock = lineTypeByLayer - 1;
constexpr uint32_t noBlock = std::numeric_limits<uint32_t>::max();
constexpr uint32_t noClip = std::numeric_limits<uint32_t>::max();
constexpr uint32_t noAnnotation = std::numeric_limits<uint32_t>::max();

/// Index into Drawing::plotStyles, or one of the marks below.
using PlotStyleIndex = uint16_t;
constexpr PlotStyleIndex plotStyleByLayer = std::numeric_limits<PlotStyleIndex>::max();
constexpr PlotStyleIndex plotStyleByBlock = plotStyleByLayer - 1;

/// What every entity has besides its geometry.
struct Attributes {
    uint32_t layer = 0;                  ///< index into Drawing::layers
    uint32_t lineType = lineTypeByLayer; ///< index into Drawing::lineTypes, or a mark
    Colour colour;
    LineWeight lineWeight = lineWeightByLayer;
    Opacity opacity = opacityByLayer;
    bool visible = true;
    PlotStyleIndex plotStyle = plotStyleByLayer;
    double lineTypeScale = 1.0;
};

/// A point, in world coordinates.
struct PointEntity {
    Vec3 position;
};

/// A line, in world coordinates.
struct Line {
    Vec3 start;
    Vec3 end;
};

/// A line without an end, or with only one, in world coordinates.
struct ConstructionLine {
    Vec3 start;
    Vec3 direction;
    bool bothWays = false; ///< it also runs the other way from the start
};

struct Circle {
    Vec3 center;
    double radius = 0.0;
};

/// A circular arc, counter-clockwise from start to end; angles in radians.
struct Arc {
    Vec3 center;
    double radius = 0.0;
    double startAngle = 0.0;
    double endAngle = 0.0;
};

/// An elliptical arc with eccentric angles in radians, counter-clockwise about the entity's extrusion.
/// Centre and axis are world coordinates, as a drawing stores them for this entity.
struct Ellipse {
    Vec3 center;
    Vec3 majorAxis; ///< end of the major axis, relative to the centre
    double ratio = 1.0;
    double startParam = 0.0;
    double endParam = 0.0;
};

struct PolylineVertex {
    Vec3 position;
    double bulge = 0.0; ///< tangent of a quarter of the arc's angle to the next vertex, positive to the left
    double startWidth = 0.0;
    double endWidth = 0.0;
};

/// A polyline; with `spatial` set its vertices are world coordinates and have no bulges or widths.
struct Polyline {
    std::vector<PolylineVertex> vertices;
    bool closed = false;
    bool spatial = false;
    bool continuousPattern = false; ///< dashes run on through the vertices
};

/// A NURBS curve in world coordinates, or a curve through fit points where it has no control points.
/// With control points it has as many knots as they and the degree ask for, in rising order.
struct Spline {
    int degree = 3;
    bool closed = false;
    std::vector<double> knots;
    std::vector<Vec3> controlPoints;
    std::vector<double> weights; ///< empty, or one a control point
    std::vector<Vec3> fitPoints;
};

/// A filled area of three or four corners, in order around the area.
struct Solid {
    std::array<Vec3, 4> corners;
};

/// The edges of a face, in world coordinates; an edge goes from its corner to the next one.
struct Face3d {
    std::array<Vec3, 4> corners;
    std::array<bool, 4> edgeVisible{true, true, true, true};
};

/// Edges between vertices in world coordinates.
struct Mesh {
    std::vector<Vec3> vertices;
    std::vector<std::array<uint32_t, 2>> edges; ///< indices into `vertices`
};

struct HatchLine {
    Vec2 start;
    Vec2 end;
};
struct HatchArc {
    Vec2 center;
    double radius = 0.0;
    double startAngle = 0.0; ///< radians, as seen counter-clockwise, whatever way the edge runs
    double endAngle = 0.0;
    bool counterClockwise = true; ///< from start to end; else the edge runs from end to start
};
struct HatchEllipse {
    Vec2 center;
    Vec2 majorAxis;
    double ratio = 1.0;
    double startParam = 0.0;
    double endParam = 0.0;
    bool counterClockwise = true;
};
struct HatchSpline {
    Spline curve;
};
using HatchEdge = std::variant<HatchLine, HatchArc, HatchEllipse, HatchSpline>;

/// One closed boundary of a hatch: either edges that follow one another, or a polyline with bulges.
struct HatchLoop {
    std::vector<HatchEdge> edges;
    std::vector<PolylineVertex> polyline;
    bool textBox = false;
};

/// Which loops of a hatch count: all, those that lie in at most one other, or those that lie in no other.
enum class HatchStyle : uint8_t { normal, outer, ignore };

/// A family of parallel lines, all alike, in the plane of a hatch and its units.
struct PatternLine {
    double angle = 0.0;         ///< radians
    Vec2 base;                  ///< where the dashes of one of the lines begin
    Vec2 offset;                ///< from there to the same place on the next line
    std::vector<double> dashes; ///< positive a dash, negative a gap, 0 a dot; empty: continuous
};

/// What a hatch is filled with where it is not solid.
struct HatchPattern {
    std::string name;               ///< UTF-8
    std::vector<PatternLine> lines; ///< turned and scaled already; empty: those that the name stands for
    double angle = 0.0;             ///< radians; of the hatch, where the name stands for the lines
    double scale = 1.0;             ///< as the angle
};

/// Colours that run into one another across a hatch.
struct HatchGradient {
    std::string name;   ///< of its shape, such as "LINEAR"; in capitals
    double angle = 0.0; ///< radians
    double shift = 0.0; ///< 0: in the middle of the hatch, 1: moved to its upper left
    Colour first;
    Colour second;
};

struct Hatch {
    bool solid = false;
    HatchStyle style = HatchStyle::normal;
    std::vector<HatchLoop> loops;
    double elevation = 0.0;                ///< of all boundaries, above the plane that the extrusion names
    HatchPattern pattern;                  ///< of a hatch that is not solid
    std::optional<HatchGradient> gradient; ///< goes before the rest
    std::optional<Colour> fillColour;      ///< of its solid filling or its pattern; none: that of the entity
    bool outlined = false;                 ///< its boundaries are drawn as lines too
};

/// References to a block, in `rows` by `columns` copies. A dimension is a reference to its own block.
struct Insert {
    uint32_t block = noBlock;           ///< index into Drawing::blocks
    uint32_t annotation = noAnnotation; ///< index into Drawing::annotations: what it shows without a block with content
    Vec3 position;
    Vec3 scale{1.0, 1.0, 1.0};
    double rotation = 0.0; ///< radians
    int columns = 1;
    int rows = 1;
    double columnSpacing = 0.0;
    double rowSpacing = 0.0;
    uint32_t clip = noClip; ///< index into Drawing::clips
};

/// A place where the lines of a multiline bend, in world coordinates.
struct MlineVertex {
    Vec3 position;
    Vec3 direction; ///< of the lines from here on
    Vec3 miter;     ///< across the lines
    /// For each line: how far it lies from the position along the mitre, and then where it begins, ends, begins... from
    /// there on, until the next vertex.
    std::vector<std::vector<double>> lines;
};

/// Lines that run side by side.
struct Mline {
    uint32_t style = 0; ///< index into Drawing::mlineStyles
    bool closed = false;
    bool startCap = true;
    bool endCap = true;
    std::vector<MlineVertex> vertices;
};

/// How a layer looks in one viewport, where it looks different from elsewhere.
struct LayerOverride {
    uint32_t layer = 0; ///< index into Drawing::layers
    std::optional<Colour> colour;
    std::optional<uint32_t> lineType; ///< index into Drawing::lineTypes
    std::optional<LineWeight> lineWeight;
    std::optional<Opacity> opacity;
};

/// A window from a sheet into model space. Its place is in the sheet's coordinates.
struct Viewport {
    Vec3 center;
    double width = 0.0;
    double height = 0.0;
    bool on = true;
    bool perspective = false;
    Vec3 viewTarget;                    ///< the point that is looked at, in the world
    Vec3 viewDirection{0, 0, 1};        ///< from there to the eye
    Vec2 viewCenter;                    ///< of what shows, in the plane of the view, from the target
    double viewHeight = 0.0;            ///< of what shows
    double twist = 0.0;                 ///< radians by which the view is turned to the left
    std::vector<uint32_t> frozenLayers; ///< that do not show here; indices into Drawing::layers
    std::vector<LayerOverride> overrides;
    std::optional<HatchLoop> clip; ///< its border in the sheet's coordinates; none: the rectangle
    bool lostBorder = false;       ///< it has a border of another kind, such as a REGION
    int stackNumber = 0;           ///< 1 lies on top, larger ones below it, 0 below all others
};

/// An entity that kelplot does not know how to plot, kept so that a plot can say so.
struct Unplotted {
    uint32_t kind = 0; ///< index into Drawing::unplottedKinds
};

/// Kinds that are large and seldom are boxed, so that drawings of many entities take less memory.
using Geometry = std::variant<PointEntity, Line, Circle, Arc, Ellipse, Polyline, Spline, Solid, Face3d, Boxed<Hatch>,
                              Text, Boxed<MText>, Boxed<Image>, Wipeout, ConstructionLine, Mline, Mesh, Boxed<Viewport>,
                              Unplotted, Insert>;

/// One entity; unless its type says otherwise, coordinates belong to the plane that `extrusion` names.
struct Entity {
    Attributes attributes;
    Vec3 extrusion{0.0, 0.0, 1.0};
    Geometry geometry;
    uint64_t handle = 0; ///< by which the drawing refers to it; 0: none
};

/// What `Geometry` holds, without its box.
template <typename Kind>
const Kind& unboxed(const Kind& geometry) {
    return geometry;
}
template <typename Kind>
Kind& unboxed(Kind& geometry) {
    return geometry;
}
template <typename Kind>
const Kind& unboxed(const Boxed<Kind>& geometry) {
    return *geometry;
}
template <typename Kind>
Kind& unboxed(Boxed<Kind>& geometry) {
    return *geometry;
}

/// Calls a visitor with the record of an entity, whatever its kind is.
template <typename Visitor, typename AnyEntity>
decltype(auto) visitGeometry(Visitor&& visitor, AnyEntity& entity) {
    return std::visit([&](auto& geometry) -> decltype(auto) { return visitor(unboxed(geometry)); }, entity.geometry);
}

/// The record of an entity if it is of this kind; else null.
template <typename Kind, typename AnyEntity>
auto* geometryAs(AnyEntity& entity) {
    constexpr bool isBoxed = std::is_constructible_v<Geometry, std::in_place_type_t<Boxed<Kind>>, Kind>;
    if constexpr (isBoxed) {
        auto* const boxed = std::get_if<Boxed<Kind>>(&entity.geometry);
        return boxed == nullptr ? nullptr : &**boxed;
    } else {
        return std::get_if<Kind>(&entity.geometry);
    }
}

} // namespace kelplot
