// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"

namespace kelplot {

namespace {

std::vector<Vec2> onPage(const std::vector<Vec3>& corners, const PlanMap& map) {
    std::vector<Vec2> points;
    points.reserve(corners.size());
    for (const Vec3& corner : corners) {
        points.push_back(map.mapPoint(corner));
    }
    return points;
}

std::vector<Vec2> onPage(const Image& image, const std::vector<Vec2>& pixels, const PlanMap& map) {
    std::vector<Vec2> points;
    points.reserve(pixels.size());
    for (const Vec2 pixel : pixels) {
        points.push_back(map.mapPoint(image.pointAt(pixel)));
    }
    return points;
}

void drawFrame(const std::vector<Vec2>& corners, const EntityStyle& style, PlotTools& tools) {
    tools.useLinePen(style);
    tools.canvas.drawOutline(corners);
}

} // namespace

void draw(const Image& image, const PlacedEntity& place, PlotTools& tools) {
    bool missing = false;
    if (image.shown) {
        tools.useFill(place.style); // an ink of the opacity that the picture is going to have
        missing = !tools.pictures.draw(image, place.style.opacity, place.map);
    }
    if (tools.drawing.imageFrames || missing) {
        drawFrame(onPage(image, image.outline(), place.map), place.style, tools);
    }
    if (tools.drawing.imageFrames && image.clipped && image.clipInverted) {
        drawFrame(onPage(image, image.clip, place.map), place.style, tools);
    }
}

Box2 boxOf(const Image& image, const MeasuredEntity& place) {
    return boxOfPoints(onPage(image, image.outline(), place.map));
}

/// Paints paper over what lies below.
void draw(const Wipeout& wipeout, const PlacedEntity& place, PlotTools& tools) {
    const std::vector<Vec2> corners = onPage(wipeout.boundary, place.map);
    tools.pens.setFill(paperInk, opaque);
    tools.canvas.fillPolygon(corners);
    if (tools.drawing.wipeoutFrames) {
        drawFrame(corners, place.style, tools);
    }
}

Box2 boxOf(const Wipeout& wipeout, const MeasuredEntity& place) {
    return boxOfPoints(wipeout.boundary.data(), wipeout.boundary.size(), place.map);
}

} // namespace kelplot
