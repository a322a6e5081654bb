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

void draw(const Face3d& face, const PlacedEntity& place, PlotTools& tools) {
    tools.useLinePen(place.style);
    for (size_t i = 0; i < face.corners.size(); ++i) {
        const Vec3& from = face.corners[i];
        const Vec3& to = face.corners[(i + 1) % face.corners.size()];
        if (face.edgeVisible[i] && !(from == to)) { // a face of three corners states the last one twice
            tools.canvas.drawSegment(place.map.mapPoint(from), place.map.mapPoint(to));
        }
    }
}

Box2 boxOf(const Face3d& face, const MeasuredEntity& place) {
    return boxOfPoints(face.corners.data(), face.corners.size(), place.map);
}

} // namespace kelplot
