// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/EntityPlotter.h"

namespace kelplot {

namespace {

/// The corners of a stroke in the order about it.
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

} // namespace

/// The style of a part of a text that may have a colour of its own.
EntityStyle EntityPlotter::styleOf(const std::optional<Colour>& colour, const Current& current) const {
    EntityStyle style = current.style;
    if (!colour || colour->kind == Colour::Kind::byBlock) {
        return style;
    }
    const bool byLayer = colour->kind == Colour::Kind::byLayer;
    style.colour = byLayer ? m_drawing.layers[style.layer].colour : *colour;
    return style;
}

void EntityPlotter::draw(const PlacedText& text, const Current& current) {
    const PlanMap map = text.through(current.map);
    for (const TextRun& run : text.block.runs) {
        const HT_Color ink = inkOf(styleOf(run.colour, current), InkUse::line);
        m_pens.setFill(ink, current.style.opacity);
        m_texts.draw(run, map, ink, current.style.opacity);
    }
    for (const TextStroke& stroke : text.block.strokes) {
        m_pens.setFill(inkOf(styleOf(stroke.colour, current), InkUse::line), current.style.opacity);
        m_canvas.fillPolygon(cornersOf(stroke, map));
    }
}

} // namespace kelplot
