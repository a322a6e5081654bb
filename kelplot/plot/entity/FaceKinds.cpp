// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/AreaFill.h"
#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"

namespace kelplot {

void draw(const Solid& solid, const PlacedEntity& place, PlotTools& tools) {
    std::vector<Vec2> corners;
    corners.reserve(solid.corners.size());
    for (const Vec3& corner : solid.corners) {
        corners.push_back(place.map.mapPoint(corner));
    }
    fillStyled(corners, place.style, tools);
}

Box2 boxOf(const Solid& solid, const MeasuredEntity& place) {
    return boxOfPoints(solid.corners.data(), solid.corners.size(), place.map);
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
