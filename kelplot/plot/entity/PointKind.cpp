// SPDX-License-Identifier: GPL-2.0-or-later
#include "base/Angles.h"
#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"
#include "plot/shape/PointMark.h"

namespace kelplot {

void draw(const PointEntity& point, const PlacedEntity& place, PlotTools& tools) {
    const Vec2 at = place.map.mapPoint(point.position);
    const PointMark mark = pointMarkFor(tools.drawing.pointMode, tools.pointSize());
    Pen pen = tools.linePen(place.style);
    pen.lineType = nullptr;
    tools.pens.setPen(pen);
    if (mark.dot) {
        tools.canvas.drawDot(at);
    }
    for (const auto& line : mark.lines) {
        std::vector<Vec2> path;
        path.reserve(line.size());
        for (const Vec2 corner : line) {
            path.push_back(at + corner);
        }
        tools.canvas.drawPolyline(path);
    }
    if (mark.circleRadius > 0.0) {
        tools.canvas.drawArc({at, {mark.circleRadius, 0.0}, {0.0, mark.circleRadius}, 0.0, turn});
    }
}

/// The box of the point alone: the size of its mark depends on the page.
Box2 boxOf(const PointEntity& point, const MeasuredEntity& place) {
    return boxOfPoints(&point.position, 1, place.map);
}

} // namespace kelplot
