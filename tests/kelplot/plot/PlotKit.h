// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>
#include <QPainterPath>
#include <string>
#include <vector>

#include "kelplot/reader/DrawingText.h"
#include "plot/DrawingPlot.h"

namespace kelplot {

/// Something that a plot has a device draw, in device units.
struct Shape {
    std::string kind;  ///< "line", "point", "area", "arc", "image", or "text" and the text
    std::string style; ///< of the pen; of the brush for an area
    QPainterPath path;
    Vec2 origin;           ///< where the painter's own origin is at the time; the start of a text
    std::string clip = {}; ///< what it is cut to

    /// Its corners, of a curve enough to follow it.
    std::vector<Vec2> points() const;
    /// Kind and rounded coordinates in one line; of an arc, or a line of many points as a curve, its start, its middle
    /// and its end, of a text its start.
    std::string text() const;
};
using Shapes = std::vector<Shape>;

/// A page of 1000 by 1000 device units for 100 by 100 drawing units, 10 device units a millimetre.
PlotTarget tenfoldTarget();

/// What the real renderer draws for the entities in model space.
Shapes shapesOf(const Drawing& drawing, const PlotTarget& target = tenfoldTarget(), const PlotStyleOptions& style = {},
                PlotReport* report = nullptr, const Progress& progress = {});

/// What it draws for some entities of a plot's drawing.
Shapes shapesOf(const DrawingPlot& plot, const std::vector<Entity>& entities, const PlotTarget& target,
                PlotReport* report = nullptr, const Progress& progress = {});

/// The page of a target as a device paints it, a pixel for each of its units.
QImage paintedPage(const Drawing& drawing, const PlotTarget& target = tenfoldTarget(),
                   const PlotStyleOptions& style = {}, PlotReport* report = nullptr);

/// The extents of the entities in model space, and what is left out of them.
Box2 extentsOf(const Drawing& drawing, ExtentsReport* report = nullptr);

/// A drawing of these entities, in the notation of `linesOf`.
Drawing withEntities(const std::string& entities);

/// A group of a number as exact as it is.
std::string group(int code, double value);

/// The device units of a point of the drawing on the page of `tenfoldTarget`.
Vec2 onPage(Vec2 p);

/// The distance from a point to a path, and to the nearest of all shapes.
double distanceToPath(Vec2 point, const std::vector<Vec2>& path);
double distanceToLines(Vec2 point, const Shapes& shapes);

/// Tells whether the areas cover a point.
bool isCovered(const Shapes& shapes, Vec2 point);

} // namespace kelplot
