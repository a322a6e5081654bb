// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/BoxClip.h"
#include "plot/entity/EntityKinds.h"
#include "plot/entity/PlotTools.h"

namespace kelplot {

/// Draws the part that crosses the visible part of the page, the pen's width included.
void draw(const ConstructionLine& line, const PlacedEntity& place, PlotTools& tools) {
    const Vec2 start = place.map.mapPoint(line.start);
    const Vec2 direction = place.map.mapDirection(line.direction);
    const double length = direction.length();
    if (!(length > 0.0) || !start.isFinite()) {
        return;
    }
    const Box2 page = tools.target.visibleBox().inflated(tools.linePen(place.style).width);
    // Far enough to leave the page from wherever it starts.
    const double reach = (start - page.center()).length() + page.width() + page.height();
    const Vec2 end = direction * (reach / length);
    tools.useLinePen(place.style);
    for (const std::vector<Vec2>& piece : clipPolyline({line.bothWays ? start - end : start, start + end}, page)) {
        tools.canvas.drawPolyline(piece);
    }
}

/// It may cover all of a page, but a drawing is not fitted to it.
Box2 boxOf(const ConstructionLine& line, const MeasuredEntity& place) {
    constexpr double longestOnPage = 1e12; // device units; no page is so large
    const Vec2 start = place.map.mapPoint(line.start);
    if (place.curves == CurveBox::exact || !start.isFinite()) {
        return {};
    }
    return Box2{start, start}.inflated(longestOnPage);
}

} // namespace kelplot
