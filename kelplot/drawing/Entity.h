// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <variant>
#include <vector>

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

/// What every entity has besides its geometry.
struct Attributes {
    uint32_t layer = 0;                  ///< index into Drawing::layers
    uint32_t lineType = lineTypeByLayer; ///< index into Drawing::lineTypes, or a mark
    Colour colour;
    LineWeight lineWeight = lineWeightByLayer;
    Opacity opacity = opacityByLayer;
    bool visible = true;
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

struct Hatch {
    bool solid = false;
    HatchStyle style = HatchStyle::normal;
    std::vector<HatchLoop> loops;
    double elevation = 0.0; ///< of all boundaries, above the plane that the extrusion names
};

/// References to a block, in `rows` by `columns` copies. A dimension is a reference to its own block.
struct Insert {
    uint32_t block = noBlock; ///< index into Drawing::blocks
    Vec3 position;
    Vec3 scale{1.0, 1.0, 1.0};
    double rotation = 0.0; ///< radians
    int columns = 1;
    int rows = 1;
    double columnSpacing = 0.0;
    double rowSpacing = 0.0;
};

using Geometry = std::variant<PointEntity, Line, Circle, Arc, Ellipse, Polyline, Spline, Solid, Face3d, Hatch, Text,
                              MText, Image, Wipeout, ConstructionLine, Insert>;

/// One entity; unless its type says otherwise, coordinates belong to the plane that `extrusion` names.
struct Entity {
    Attributes attributes;
    Vec3 extrusion{0.0, 0.0, 1.0};
    Geometry geometry;
};

} // namespace kelplot
