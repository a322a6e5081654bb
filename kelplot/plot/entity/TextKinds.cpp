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

/// The style of a part of a text that may have a colour of its own.
EntityStyle styleOf(const std::optional<Colour>& colour, const EntityStyle& whole, const Drawing& drawing) {
    EntityStyle style = whole;
    if (colour && colour->kind != Colour::Kind::byBlock) {
        const bool byLayer = colour->kind == Colour::Kind::byLayer;
        style.colour = byLayer ? drawing.layers[style.layer].colour : *colour;
    }
    return style;
}

void drawPlaced(const PlacedText& text, const PlacedEntity& place, PlotTools& tools) {
    const PlanMap map = text.through(place.map);
    const uint8_t opacity = place.style.opacity;
    for (const TextRun& run : text.block.runs) {
        const HT_Color ink = tools.inkOf(styleOf(run.colour, place.style, tools.drawing), InkUse::line);
        tools.pens.setFill(ink, opacity);
        tools.texts.draw(run, map, ink, opacity);
    }
    for (const TextStroke& stroke : text.block.strokes) {
        const EntityStyle style = styleOf(stroke.colour, place.style, tools.drawing);
        tools.pens.setFill(tools.inkOf(style, InkUse::line), opacity);
        tools.canvas.fillPolygon(cornersOf(stroke, map));
    }
}

} // namespace

void draw(const Text& text, const PlacedEntity& place, PlotTools& tools) {
    drawPlaced(tools.typesetter.place(text), place, tools);
}

void draw(const MText& text, const PlacedEntity& place, PlotTools& tools) {
    drawPlaced(tools.typesetter.place(text), place, tools);
}

Box2 boxOf(const Text& text, const MeasuredEntity& place) {
    return place.texts.place(text).boxThrough(place.map);
}

Box2 boxOf(const MText& text, const MeasuredEntity& place) {
    return place.texts.place(text).boxThrough(place.map);
}

} // namespace kelplot
