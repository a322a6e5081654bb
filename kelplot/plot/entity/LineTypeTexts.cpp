// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/LineTypeTexts.h"

namespace kelplot {

namespace {

/// From the coordinates of a text, in units of the line type, to its place on the page, whose y axis points down.
PlanMap mapOf(const LineTypeMark& mark) {
    const auto to = [&](Vec2 right) {
        PlanMap map;
        map.x = right * mark.scale;
        map.y = Vec2{right.y, -right.x} * mark.scale;
        map.origin = mark.at;
        return map;
    };
    PlanMap map = to(mark.along);
    const Vec2 origin = map.mapPoint(mark.text->offset);
    if (mark.text->level) {
        map = to({1.0, 0.0});
    }
    map.origin = origin;
    return map;
}

} // namespace

void drawLineTypeTexts(PlotTools& tools) {
    for (const LineTypeMark& mark : tools.canvas.takeMarks()) {
        const PlacedText& placed = tools.typesetter.place(mark.text->text);
        const PlanMap map = placed.through(mapOf(mark));
        tools.pens.setFill(mark.ink, mark.opacity);
        for (const TextRun& run : placed.block.runs) {
            tools.texts.draw(run, map, mark.ink, mark.opacity);
        }
    }
}

} // namespace kelplot
