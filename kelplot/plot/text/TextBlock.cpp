// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/TextBlock.h"

namespace kelplot {

void TextBlock::add(const TextBlock& other, Vec2 by) {
    for (TextRun run : other.runs) {
        run.origin = run.origin + by;
        runs.push_back(std::move(run));
    }
    for (TextStroke stroke : other.strokes) {
        stroke.from = stroke.from + by;
        stroke.to = stroke.to + by;
        strokes.push_back(stroke);
    }
    if (!other.ink.isEmpty()) {
        ink.add(other.ink.min + by);
        ink.add(other.ink.max + by);
    }
}

void TextBlock::addStroke(const TextStroke& stroke) {
    strokes.push_back(stroke);
    Box2 box;
    box.add(stroke.from);
    box.add(stroke.to);
    ink.add(box.inflated(stroke.width / 2.0));
}

PlanMap PlacedText::through(const PlanMap& map) const {
    const PlanMap plane = map.raised(elevation);
    PlanMap result = plane;
    result.x = plane.mapDirection(Vec2{toPlane.a, toPlane.b});
    result.y = plane.mapDirection(Vec2{toPlane.c, toPlane.d});
    result.origin = plane.mapPoint(Vec2{toPlane.e, toPlane.f});
    return result;
}

Box2 PlacedText::boxThrough(const Box2& part, const PlanMap& map) const {
    Box2 box;
    if (part.isEmpty()) {
        return box;
    }
    const PlanMap whole = through(map);
    for (const Vec2 corner : part.corners()) {
        const Vec2 p = whole.mapPoint(corner);
        if (!p.isFinite()) {
            return {};
        }
        box.add(p);
    }
    return box;
}

} // namespace kelplot
