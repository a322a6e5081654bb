// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"

namespace kelplot {

void draw(const Line& line, const PlacedEntity& place, PlotTools& tools) {
    tools.useLinePen(place.style);
    tools.canvas.drawSegment(place.map.mapPoint(line.start), place.map.mapPoint(line.end));
}

Box2 boxOf(const Line& line, const MeasuredEntity& place) {
    const Vec3 ends[] = {line.start, line.end};
    const bool finite = place.map.mapPoint(line.start).isFinite() && place.map.mapPoint(line.end).isFinite();
    return boxOfPoints(ends, finite ? 2 : 0, place.map);
}

} // namespace kelplot
