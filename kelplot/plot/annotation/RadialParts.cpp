// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/RadialParts.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/Angles.h"
#include "geometry/Direction.h"

namespace kelplot {

namespace {

/// A steeper line than this to a level text ends in a level stretch.
constexpr double flattestHook = turn / 24.0;

/// The circle that is measured.
struct Circle2 {
    Vec2 centre;
    Vec2 tip;      ///< where the dimension line meets it
    Vec2 outwards; ///< from the centre there
    double radius;
};

std::optional<Circle2> circleOf(const Dimension& dimension) {
    const bool isDiameter = dimension.kind == Dimension::Kind::diameter;
    const Vec2 centre = isDiameter ? (dimension.line + dimension.side) * 0.5 : dimension.line;
    const Vec2 arm = dimension.side - centre;
    const double radius = arm.length();
    if (!(radius > 0.0)) {
        return std::nullopt;
    }
    return Circle2{centre, dimension.side, arm * (1.0 / radius), radius};
}

/// The text and the line that leads to it from the circle.
struct TextLayout {
    std::optional<TextBox> box;
    bool inside = false;
    bool level = false;
};

/// The text where the drawing says nothing of it: outside, beyond the arrow head.
TextBox boxOutside(const DimensionDraft& draft, const Circle2& circle, double angle, bool level) {
    const DimensionLook& look = draft.look();
    const Vec2 end = circle.tip + circle.outwards * (2.0 * look.arrowSize);
    TextBox box = draft.boxAt(end, angle);
    const double hook = level ? look.arrowSize : 0.0;
    const Vec2 side = box.along * (dot(circle.outwards, box.along) < 0.0 ? -1.0 : 1.0);
    box.middle = end + side * (hook + look.gap + box.halfSize.x) + leftNormal(box.along) * draft.textRise(0.0);
    return box;
}

/// The text that its style forces into the circle: in the middle of the line there.
TextBox boxInside(const DimensionDraft& draft, const Circle2& circle, double angle) {
    const bool isDiameter = draft.dimension().kind == Dimension::Kind::diameter;
    const Vec2 middle = isDiameter ? circle.centre : (circle.centre + circle.tip) * 0.5;
    const double direction = draft.textAngle(angleOf(circle.outwards), false);
    return draft.boxAt(middle + leftNormal(unitVector(direction)) * draft.textRise(angle - direction), angle);
}

TextLayout layOutText(const DimensionDraft& draft, const Circle2& circle) {
    TextLayout text;
    if (!draft.hasText()) {
        return text;
    }
    const DimensionLook& look = draft.look();
    const bool placed = draft.dimension().textPlaced;
    text.inside =
        placed ? (draft.statedMiddle() - circle.centre).length() < circle.radius : draft.look().textForcedInside;
    const double angle = draft.textAngle(angleOf(circle.outwards), text.inside ? look.levelInside : look.levelOutside);
    const Vec2 along = unitVector(angle);
    text.level = std::abs(cross(along, circle.outwards)) > std::sin(flattestHook);
    if (placed) {
        text.box = draft.boxAt(draft.statedMiddle(), angle);
    } else {
        text.box = text.inside ? boxInside(draft, circle, angle) : boxOutside(draft, circle, angle, text.level);
    }
    return text;
}

/// The line from the circle to the text, and under one that stands above it.
void addLeader(DimensionDraft& draft, const Circle2& circle, const TextLayout& text) {
    const DimensionLook& look = draft.look();
    const TextBox& box = *text.box;
    const double side = dot(box.middle - circle.tip, box.along) < 0.0 ? -1.0 : 1.0;
    const Vec2 towards = box.along * side;
    const bool inLine = look.textRow == DimensionLook::TextRow::inLine;
    const Vec2 base = box.middle - leftNormal(box.along) * draft.textRise(0.0);
    const Vec2 near = base - towards * (box.halfSize.x + (inLine || text.level ? look.gap : 0.0));
    const Vec2 far = inLine ? near : base + towards * box.halfSize.x;
    const Vec2 out = circle.outwards * (text.inside ? -1.0 : 1.0);
    const Vec2 back = circle.tip + out * draft.end(1).cover();
    const Vec2 hook = near - towards * look.arrowSize;
    // A text that was moved off the line through the centre may leave no room for the level stretch.
    const bool hooked = text.level && dot(hook - back, towards) > 0.0;
    const Vec2 knee = hooked ? hook : (text.level ? near : far);
    draft.addLine(back, knee, nullptr);
    draft.addLine(knee, far, nullptr);
}

void addCentreMark(DimensionDraft& draft, const Circle2& circle) {
    const double size = std::abs(draft.look().centreMark);
    const bool withLines = draft.look().centreMark < 0.0;
    for (const Vec2 axis : {Vec2{1.0, 0.0}, Vec2{0.0, 1.0}}) {
        draft.addLine(circle.centre - axis * size, circle.centre + axis * size, nullptr);
        const double end = circle.radius + size;
        if (withLines && end > 2.0 * size) {
            draft.addLine(circle.centre + axis * (2.0 * size), circle.centre + axis * end, nullptr);
            draft.addLine(circle.centre - axis * (2.0 * size), circle.centre - axis * end, nullptr);
        }
    }
}

/// A line from one end of the diameter to the other, or from the centre, with the text in it or beside it.
void addThroughLine(DimensionDraft& draft, const Circle2& circle, const TextLayout& text) {
    const bool isDiameter = draft.dimension().kind == Dimension::Kind::diameter;
    const Vec2 start = isDiameter ? circle.centre - circle.outwards * circle.radius : circle.centre;
    const Vec2 from = isDiameter ? start + circle.outwards * draft.end(0).cover() : start;
    draft.addLine(from, circle.tip - circle.outwards * draft.end(1).cover(), text.box ? &*text.box : nullptr);
    if (isDiameter) {
        draft.addEnd(0, start, angleOf(circle.outwards * -1.0));
    }
    draft.addEnd(1, circle.tip, angleOf(circle.outwards));
}

} // namespace

void addRadialParts(DimensionDraft& draft) {
    const auto circle = circleOf(draft.dimension());
    if (!circle) {
        return;
    }
    const TextLayout text = layOutText(draft, *circle);
    if (!text.box || (text.inside && !draft.dimension().textMoved)) {
        addThroughLine(draft, *circle, text);
    } else {
        addLeader(draft, *circle, text);
        draft.addEnd(1, circle->tip, angleOf(circle->outwards * (text.inside ? 1.0 : -1.0)));
    }
    if (text.box && !text.inside) {
        const bool isDiameter = draft.dimension().kind == Dimension::Kind::diameter;
        if (draft.look().lineInside) {
            draft.addLine(isDiameter ? draft.dimension().line : circle->centre, circle->tip, nullptr);
        } else {
            addCentreMark(draft, *circle);
        }
    }
    if (text.box) {
        draft.addText(*text.box);
    }
}

} // namespace kelplot
