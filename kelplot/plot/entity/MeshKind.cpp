// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"

namespace kelplot {

void draw(const Mesh& mesh, const PlacedEntity& place, PlotTools& tools) {
    tools.useLinePen(place.style);
    for (const auto& [from, to] : mesh.edges) {
        tools.canvas.drawSegment(place.map.mapPoint(mesh.vertices[from]), place.map.mapPoint(mesh.vertices[to]));
    }
}

Box2 boxOf(const Mesh& mesh, const MeasuredEntity& place) {
    return boxOfPoints(mesh.vertices.data(), mesh.vertices.size(), place.map);
}

} // namespace kelplot
