// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/AngleParts.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/Angles.h"
#include "drawing/DimensionMeasure.h"
#include "geometry/Direction.h"

namespace kelplot {

namespace {

/// A dimension arc, by angles from its start.
struct ArcLayout {
    AngleMeasure measure;
    std::optional<TextBox> text;
    double textAt = 0.0; ///< of its middle
    bool headsInside = true;

    Vec2 at(double angle) const { return measure.centre + unitVector(measure.start + angle) * measure.radius; }
    bool textInside() const { return text && textAt >= 0.0 && textAt <= measure.sweep; }
    /// Where the text stands in the arc, the gap around it included.
    Interval cut(double gap) const {
        constexpr Interval nothing{1.0, 0.0};
        if (!text || text->onCircle(measure.centre, measure.radius, 0.0).isEmpty()) {
            return nothing;
        }
        const Interval around = text->onCircle(measure.centre, measure.radius, gap);
        return {textAt + around.low, textAt + around.high};
    }
};

/// An angle brought nearest to the middle of the arc.
double nearMiddle(double angle, const AngleMeasure& measure) {
    const double middle = measure.sweep / 2.0;
    return middle + std::remainder(angle - measure.start - middle, turn);
}

/// The direction of the arc's tangent.
double tangentAt(const ArcLayout& arc, double angle) {
    return arc.measure.start + angle - turn / 4.0;
}

/// The angle that a text takes up whose middle is seen at `angle`.
double angleOfText(const DimensionDraft& draft, const ArcLayout& arc, double angle, bool level) {
    const double tangent = tangentAt(arc, angle);
    return 2.0 * draft.boxAt({}, draft.textAngle(tangent, level)).halfExtent(unitVector(tangent)) / arc.measure.radius;
}

/// Puts a text where the drawing has it.
void placeTextAsStated(const DimensionDraft& draft, double heads, ArcLayout& arc) {
    const DimensionLook& look = draft.look();
    const Vec2 middle = draft.statedMiddle();
    const double seen = angleOf(middle - arc.measure.centre);
    arc.textAt = nearMiddle(seen, arc.measure);
    arc.text = draft.boxAt(middle, 0.0);
    const bool level = arc.textInside() ? look.levelInside : look.levelOutside;
    arc.text = draft.boxAt(middle, draft.textAngle(seen - turn / 4.0, level));
    const Interval cut = arc.cut(look.gap);
    const double forText = arc.textInside() && !cut.isEmpty() ? cut.high - cut.low : 0.0;
    arc.headsInside = heads + forText <= arc.measure.sweep;
}

/// Puts a text where its style has it, or beyond the second end where it finds no room.
void placeTextByStyle(const DimensionDraft& draft, double heads, ArcLayout& arc) {
    const DimensionLook& look = draft.look();
    const double sweep = arc.measure.sweep;
    const double gap = look.gap / arc.measure.radius;
    const Fitting fitting =
        draft.fitting(sweep - 2.0 * gap, heads, angleOfText(draft, arc, sweep / 2.0, look.levelInside));
    arc.headsInside = fitting.heads;
    arc.textAt = sweep / 2.0;
    if (!fitting.text) {
        const double length = angleOfText(draft, arc, sweep, look.levelOutside);
        const double beyond = (fitting.heads ? 0.5 : 1.0) * heads + gap + length / 2.0;
        arc.textAt = std::min(sweep + beyond, (sweep + turn) / 2.0); // at most half-way round to the first end
    }
    const double tangent = tangentAt(arc, arc.textAt);
    const double angle = draft.textAngle(tangent, fitting.text ? look.levelInside : look.levelOutside);
    const double distance = arc.measure.radius + draft.textRise(angle - tangent);
    arc.text = draft.boxAt(arc.measure.centre + unitVector(arc.measure.start + arc.textAt) * distance, angle);
}

/// How far the arc goes on beyond its second end for a text that its style has there; 0 where there is none.
double reachToText(const DimensionDraft& draft, const ArcLayout& arc) {
    if (draft.dimension().textPlaced || !arc.text || arc.textInside()) {
        return 0.0;
    }
    const Interval cut = arc.cut(draft.look().gap);
    const double end = arc.textAt + angleOfText(draft, arc, arc.textAt, draft.look().levelOutside) / 2.0;
    return std::min(cut.isEmpty() ? end : cut.low, turn) - arc.measure.sweep;
}

void addArc(DimensionDraft& draft, const ArcLayout& arc, double from, double to, bool broken) {
    const Interval cut = broken ? arc.cut(draft.look().gap) : Interval{1.0, 0.0};
    const auto add = [&](double start, double end) {
        draft.parts().addArc(arc.measure.centre, arc.measure.radius, arc.measure.start + start, arc.measure.start + end,
                             draft.look().line);
    };
    if (cut.isEmpty()) {
        add(from, to);
    } else {
        add(from, std::min(cut.low, to));
        add(std::max(cut.high, from), to);
    }
}

/// The angle over a chord.
double angleOver(double chord, double radius) {
    return 2.0 * std::asin(std::min(1.0, chord / 2.0 / radius));
}

/// Draws the arrow head whose line comes from the angle `back`.
void addEnd(DimensionDraft& draft, const ArcLayout& arc, size_t end, double tip, double back) {
    draft.addEnd(end, arc.at(tip), angleOf(arc.at(tip) - arc.at(back)));
}

void addArcInside(DimensionDraft& draft, const ArcLayout& arc, double arrow) {
    const double sweep = arc.measure.sweep;
    const double first = draft.end(0).lineReachesTip ? 0.0 : arrow;
    const double last = draft.end(1).lineReachesTip ? 0.0 : arrow;
    const double half = arc.textInside() ? arc.textAt : sweep / 2.0;
    const double from = draft.end(0).shown ? first : half;
    const double to = draft.end(1).shown ? sweep - last : half;
    if (from < to) {
        addArc(draft, arc, from, to, true);
    }
    addArc(draft, arc, sweep, sweep + reachToText(draft, arc), false);
    addEnd(draft, arc, 0, 0.0, arrow);
    addEnd(draft, arc, 1, sweep, sweep - arrow);
}

void addArcOutside(DimensionDraft& draft, const ArcLayout& arc, double arrow) {
    const double sweep = arc.measure.sweep;
    const Interval cut = arc.cut(draft.look().gap);
    const bool reaches = !cut.isEmpty() && !arc.textInside();
    const double before = reaches && arc.textAt < 0.0 ? std::min(-2.0 * arrow, cut.high) : -2.0 * arrow;
    const double toText = reaches && arc.textAt > 0.0 ? cut.low : sweep + reachToText(draft, arc);
    const double after = std::max(sweep + 2.0 * arrow, toText);
    const bool noLine = draft.look().noLineOutside;
    if (draft.end(0).shown && !noLine) {
        addArc(draft, arc, before, -arrow, false);
        addEnd(draft, arc, 0, 0.0, -arrow);
    }
    if (draft.end(1).shown && !noLine) {
        addArc(draft, arc, sweep + arrow, after, false);
        addEnd(draft, arc, 1, sweep, sweep + arrow);
    }
    if (draft.look().lineInside) {
        addArc(draft, arc, 0.0, sweep, true);
    }
}

} // namespace

void addAngleParts(DimensionDraft& draft) {
    const auto measure = angleMeasureOf(draft.dimension());
    if (!measure) {
        return;
    }
    ArcLayout arc{*measure, {}};
    const double arrow = angleOver(std::max(draft.end(0).room(), draft.end(1).room()), measure->radius);
    if (!draft.hasText()) {
        arc.headsInside = 2.0 * arrow <= measure->sweep;
    } else if (draft.dimension().textPlaced) {
        placeTextAsStated(draft, 2.0 * arrow, arc);
    } else {
        placeTextByStyle(draft, 2.0 * arrow, arc);
    }
    for (size_t i = 0; i < measure->arms.size(); ++i) {
        if (const auto arm = measure->arms[i]) {
            const Vec2 end = arc.at(i == 0 ? 0.0 : measure->sweep);
            const Vec2 ray = unitVector(measure->start + (i == 0 ? 0.0 : measure->sweep));
            draft.addExtensionLine(i, *arm, end, ray * (dot(end - *arm, ray) < 0.0 ? -1.0 : 1.0));
        }
    }
    if (arc.headsInside) {
        addArcInside(draft, arc, arrow);
    } else {
        addArcOutside(draft, arc, arrow);
    }
    if (arc.text) {
        draft.addText(*arc.text);
    }
}

} // namespace kelplot
