// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/EntityKinds.h"
#include "plot/entity/PlotTools.h"

namespace kelplot {

namespace {

/// The corners of a stroke, in order around it.
std::vector<Vec2> cornersOf(const TextStroke& stroke, const PlanMap& map) {
    const Vec2 along = stroke.to - stroke.from;
    const double length = along.length();
    if (!(length > 0.0)) {
        return {};
    }
    const Vec2 side = leftNormal(along) * (stroke.width / 2.0 / length);
    return {map.mapPoint(stroke.from + side), map.mapPoint(stroke.to + side), map.mapPoint(stroke.to - side),
            map.mapPoint(stroke.from - side)};
}

void drawPlaced(const PlacedText& text, const PlacedEntity& place, PlotTools& tools) {
    const PlanMap map = text.through(place.map);
    const uint8_t opacity = place.style.opacity;
    for (const TextRun& run : text.block.runs) {
        const HT_Color ink = tools.inkOf(withColour(place.style, run.colour, tools.drawing), InkUse::line);
        tools.pens.setFill(ink, opacity);
        tools.texts.draw(run, map, ink, opacity);
    }
    for (const TextStroke& stroke : text.block.strokes) {
        const EntityStyle style = withColour(place.style, stroke.colour, tools.drawing);
        tools.pens.setFill(tools.inkOf(style, InkUse::line), opacity);
        tools.canvas.fillPolygon(cornersOf(stroke, map));
    }
}

/// Draws the rectangle that a text stands on.
void drawBackground(const MText& text, const PlacedEntity& place, PlotTools& tools) {
    const PlacedText& placed = tools.typesetter.place(text);
    if (placed.frame.isEmpty()) {
        return;
    }
    const PlanMap map = placed.through(place.map);
    const Box2 box = placed.frame.inflated(text.border);
    std::vector<Vec2> corners;
    for (const Vec2 corner : box.corners()) {
        corners.push_back(map.mapPoint(corner));
    }
    if (text.masked) {
        const EntityStyle look = withColour(place.style, text.maskColour, tools.drawing);
        tools.pens.setFill(text.maskColour ? tools.inkOf(look, InkUse::fill) : paperInk, opaque);
        tools.canvas.fillPolygon(corners);
    }
    if (text.framed) {
        tools.useLinePen(place.style);
        tools.canvas.drawOutline(corners);
    }
}

} // namespace

void draw(const Text& text, const PlacedEntity& place, PlotTools& tools) {
    drawPlaced(tools.typesetter.place(text), place, tools);
}

void draw(const MText& text, const PlacedEntity& place, PlotTools& tools) {
    if (text.masked || text.framed) {
        drawBackground(text, place, tools);
    }
    drawPlaced(tools.typesetter.place(text), place, tools);
}

Box2 boxOf(const Text& text, const MeasuredEntity& place) {
    const PlacedText& placed = place.texts.place(text);
    return placed.boxThrough(placed.block.ink, place.map);
}

Box2 boxOf(const MText& text, const MeasuredEntity& place) {
    const PlacedText& placed = place.texts.place(text);
    const bool hasRectangle = (text.masked || text.framed) && !placed.frame.isEmpty();
    return placed.boxThrough(hasRectangle ? placed.frame.inflated(text.border) : placed.block.ink, place.map);
}

} // namespace kelplot
