// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "geometry/LoopIndex.h"
#include "plot/entity/PlotTools.h"

namespace kelplot {

/// Adds what may show of a closed polyline, on the grid of the device, where the renderer puts the points anyway: there
/// it is certain which loops touch.
void addVisibleLoop(const std::vector<Vec2>& points, bool alwaysHole, const Canvas& canvas,
                    std::vector<AreaLoop>& loops);

/// Fills areas with the pen's ink in force.
void fillAreas(const std::vector<AreaLoop>& loops, Canvas& canvas);

/// Draws the lines of a pattern over areas, in device units after `map`. Lines or dashes that are finer than the device
/// shows become their mean tint, and so does what would take too many. False where it took too many.
bool drawPatternLines(const std::vector<PatternLine>& lines, const PlanMap& map, const std::vector<AreaLoop>& loops,
                      const Pen& pen, PlotTools& tools);

/// Fills areas that are solid in the drawing as the pens say for what has this style: with ink, or with a pattern of
/// ink.
void fillStyled(const std::vector<AreaLoop>& loops, const EntityStyle& style, PlotTools& tools);
void fillStyled(const std::vector<Vec2>& polygon, const EntityStyle& style, PlotTools& tools);

} // namespace kelplot
