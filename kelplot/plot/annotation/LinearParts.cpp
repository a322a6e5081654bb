// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/LinearParts.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "drawing/DimensionMeasure.h"
#include "geometry/Direction.h"

namespace kelplot {

namespace {

/// A straight dimension line, by distances from its first end.
struct LineLayout {
    Vec2 start;
    Vec2 along;
    double length;
    std::array<Vec2, 2> extensions; ///< directions in which the extension lines run out
    std::optional<TextBox> text = {};
    double textAt = 0.0; ///< of its middle, along the line
    bool textMovedAway = false;
    bool headsInside = true;
    std::optional<size_t> textAbove = {}; ///< the end whose extension line it stands above

    Vec2 at(double distance) const { return start + along * distance; }
    bool textInside() const { return text && !textAbove && textAt >= 0.0 && textAt <= length; }
    const TextBox* box() const { return text ? &*text : nullptr; }
    bool hasLeader(const DimensionLook& look) const {
        return textMovedAway && look.textMove == DimensionLook::TextMove::withLeader;
    }
};

/// How far the nearest edge of a text lies from the dimension line.
double distanceFromLine(const TextBox& box, const LineLayout& line) {
    const Vec2 up = leftNormal(line.along);
    return std::abs(dot(box.middle - line.start, up)) - box.halfExtent(up);
}

/// The text beside a leader hangs on the end of that, not on its middle.
TextBox besideLeader(const TextBox& box, const LineLayout& line) {
    TextBox moved = box;
    const double side = dot(box.middle - line.at(line.length / 2.0), box.along) < 0.0 ? -1.0 : 1.0;
    moved.middle = box.middle + box.along * (side * box.halfSize.x);
    return moved;
}

/// The room that arrow heads and text have between the extension lines.
double roomOf(const DimensionDraft& draft, const LineLayout& line) {
    return line.length - 2.0 * draft.look().gap;
}

double headsOf(const DimensionDraft& draft) {
    return draft.end(0).room() + draft.end(1).room();
}

/// How far from the first end the middle of a text stands that takes up `length` between the extension lines.
double textAtOf(const DimensionDraft& draft, const LineLayout& line, double length) {
    using Place = DimensionLook::TextPlace;
    const Place place = draft.look().textPlace;
    const LineEnd& end = draft.end(place == Place::second ? 1 : 0);
    const double head = line.headsInside ? end.room() : 0.0;
    const double fromEnd = std::min(head + draft.look().gap + length / 2.0, line.length / 2.0);
    switch (place) {
    case Place::first:
        return fromEnd;
    case Place::second:
        return line.length - fromEnd;
    default:
        return line.length / 2.0;
    }
}

/// Puts a text that finds no room beyond the second end, or over the line.
void placeTextOutside(const DimensionDraft& draft, const Vec2 up, LineLayout& line) {
    using Move = DimensionLook::TextMove;
    const DimensionLook& look = draft.look();
    const double direction = angleOf(line.along);
    const double angle = draft.textAngle(direction, look.levelOutside);
    TextBox box = draft.boxAt({}, angle);
    if (look.textMove == Move::besideLine) {
        const double arrows = (line.headsInside ? 1.0 : 2.0) * draft.end(1).size;
        line.textAt = line.length + arrows + look.gap + box.halfExtent(line.along);
        box.middle = line.at(line.textAt) + up * draft.textRise(angle - direction);
    } else {
        const double off = 2.0 * look.arrowSize;
        line.textAt = line.length / 2.0;
        line.textMovedAway = true;
        box.middle = line.at(line.textAt) + up * (box.halfExtent(up) + 2.0 * look.gap + off);
        if (look.textMove == Move::withLeader) {
            box.middle = box.middle + box.along * off;
            box = besideLeader(box, line);
        }
    }
    line.text = box;
}

/// Puts a text above an extension line and along it.
void placeTextAbove(const DimensionDraft& draft, size_t end, LineLayout& line) {
    const Vec2 out = line.extensions[end];
    const double gap = draft.look().gap;
    TextBox box = draft.boxAt({}, draft.textAngle(angleOf(out), false));
    const Vec2 up = leftNormal(box.along);
    box.middle =
        line.at(end == 0 ? 0.0 : line.length) + out * (gap + box.halfExtent(out)) + up * (gap + box.halfExtent(up));
    line.text = box;
    line.textAbove = end;
    line.headsInside = headsOf(draft) <= roomOf(draft, line);
}

/// Puts a text where its style has it.
void placeTextByStyle(const DimensionDraft& draft, LineLayout& line) {
    using Place = DimensionLook::TextPlace;
    const Place place = draft.look().textPlace;
    if (place == Place::aboveFirst || place == Place::aboveSecond) {
        placeTextAbove(draft, place == Place::aboveFirst ? 0 : 1, line);
        return;
    }
    const double direction = angleOf(line.along);
    const double angle = draft.textAngle(direction, draft.look().levelInside);
    const Vec2 upright = leftNormal(unitVector(draft.textAngle(direction, false)));
    const Vec2 up = leftNormal(line.along) * (dot(leftNormal(line.along), upright) < 0.0 ? -1.0 : 1.0);
    const double length = 2.0 * draft.boxAt({}, angle).halfExtent(line.along);
    const Fitting fitting = draft.fitting(roomOf(draft, line), headsOf(draft), length);
    line.headsInside = fitting.heads;
    if (fitting.text) {
        line.textAt = textAtOf(draft, line, length);
        line.text = draft.boxAt(line.at(line.textAt) + up * draft.textRise(angle - direction), angle);
    } else {
        placeTextOutside(draft, up, line);
    }
}

/// Puts a text where the drawing has it.
void placeTextAsStated(const DimensionDraft& draft, LineLayout& line) {
    const DimensionLook& look = draft.look();
    const double direction = angleOf(line.along);
    const double insideAngle = draft.textAngle(direction, look.levelInside);
    const Vec2 middle = draft.statedMiddle();
    line.textAt = dot(middle - line.start, line.along);
    line.text = draft.boxAt(middle, insideAngle);
    if (!line.textInside()) {
        line.text = draft.boxAt(middle, draft.textAngle(direction, look.levelOutside));
    }
    line.textMovedAway = distanceFromLine(*line.text, line) > 2.0 * look.gap;
    if (line.hasLeader(look)) {
        line.text = besideLeader(*line.text, line);
    }
    const bool between = line.textInside() && !line.textMovedAway;
    const double length = between ? 2.0 * line.text->halfExtent(line.along) : 0.0;
    line.headsInside = headsOf(draft) + length <= roomOf(draft, line);
}

/// How far the line goes on beyond an end to a text there, from the end on; 0 where the text is elsewhere.
double reachToText(const DimensionDraft& draft, const LineLayout& line, size_t end) {
    if (!line.text || line.textAbove || line.textInside() || line.textMovedAway || (line.textAt < 0.0) != (end == 0)) {
        return 0.0;
    }
    const Vec2 out = line.along * (end == 0 ? -1.0 : 1.0);
    const Vec2 tip = line.at(end == 0 ? 0.0 : line.length);
    const Interval covered = line.text->onLine(tip, out, 0.0);
    return covered.isEmpty() ? dot(line.text->middle - tip, out) + line.text->halfExtent(out)
                             : line.text->onLine(tip, out, draft.look().gap).low;
}

void addTextLeader(DimensionDraft& draft, const LineLayout& line) {
    const TextBox& box = *line.text;
    const Vec2 start = line.at(line.length / 2.0);
    const double side = dot(box.middle - start, box.along) < 0.0 ? -1.0 : 1.0;
    const Vec2 edge = box.middle - box.along * (side * (box.halfSize.x + draft.look().gap));
    const Vec2 knee = edge - box.along * (side * draft.look().arrowSize);
    draft.addLine(start, knee, nullptr);
    draft.addLine(knee, edge, nullptr);
}

/// Arrow heads within the extension lines, or ticks.
void addLineInside(DimensionDraft& draft, const LineLayout& line) {
    std::array<double, 2> reach{};
    for (size_t i = 0; i < reach.size(); ++i) {
        const LineEnd& end = draft.end(i);
        const double beyond = end.isTick ? draft.look().lineBeyond : -end.cover();
        reach[i] = std::max(beyond, 0.0);
        const double toText = reachToText(draft, line, i);
        if (end.shown && toText > reach[i]) {
            draft.addLine(line.at(i == 0 ? -toText : line.length), line.at(i == 0 ? 0.0 : line.length + toText),
                          line.box());
        }
        reach[i] = beyond;
    }
    const bool split = draft.end(0).shown != draft.end(1).shown;
    const double half = line.textInside() ? line.textAt : line.length / 2.0;
    const double from = split && !draft.end(0).shown ? half : -reach[0];
    const double to = split && !draft.end(1).shown ? half : line.length + reach[1];
    if ((draft.end(0).shown || draft.end(1).shown) && from < to) {
        draft.addLine(line.at(from), line.at(to), line.box());
    }
    draft.addEnd(0, line.start, angleOf(line.along * -1.0));
    draft.addEnd(1, line.at(line.length), angleOf(line.along));
}

/// Arrow heads that point at the extension lines from outside.
void addLineOutside(DimensionDraft& draft, const LineLayout& line) {
    for (size_t i = 0; i < 2; ++i) {
        const LineEnd& end = draft.end(i);
        const double out = i == 0 ? -1.0 : 1.0;
        const double tip = i == 0 ? 0.0 : line.length;
        const double tail = std::max(2.0 * end.size, reachToText(draft, line, i));
        if (end.shown && !draft.look().noLineOutside) {
            draft.addLine(line.at(tip + out * end.cover()), line.at(tip + out * tail), nullptr);
            draft.addEnd(i, line.at(tip), angleOf(line.along * -out));
        }
    }
    if (draft.look().lineInside || line.hasLeader(draft.look())) {
        draft.addLine(line.start, line.at(line.length), line.box());
    }
}

std::array<Vec2, 2> extensionsOf(const DimensionDraft& draft, const LinearMeasure& measure) {
    const Vec2 measured[] = {draft.dimension().first, draft.dimension().second};
    std::array<Vec2, 2> extensions;
    for (size_t i = 0; i < 2; ++i) {
        // A point on the dimension line has its extension line on the side of the other one.
        Vec2 towards = measure.ends[i] - measured[i];
        if (!(towards.length() > draft.look().extensionGap)) {
            towards = measure.ends[1 - i] - measured[1 - i];
        }
        extensions[i] = measure.extension * (dot(towards, measure.extension) < 0.0 ? -1.0 : 1.0);
    }
    return extensions;
}

} // namespace

void addLinearParts(DimensionDraft& draft) {
    const Dimension& dimension = draft.dimension();
    const LinearMeasure measure = linearMeasureOf(dimension);
    LineLayout line{measure.ends[0], measure.along, measure.length, extensionsOf(draft, measure)};
    if (!draft.hasText()) {
        line.headsInside = headsOf(draft) <= roomOf(draft, line);
    } else if (dimension.textPlaced) {
        placeTextAsStated(draft, line);
    } else {
        placeTextByStyle(draft, line);
    }
    const Vec2 measured[] = {dimension.first, dimension.second};
    for (size_t i = 0; i < 2; ++i) {
        const Vec2 out = line.extensions[i];
        const double toText = line.textAbove == i ? draft.look().gap + 2.0 * line.text->halfExtent(out) : 0.0;
        draft.addExtensionLine(i, measured[i], measure.ends[i], out, toText);
    }
    const bool areTicks = draft.end(0).isTick && draft.end(1).isTick;
    if (areTicks || line.headsInside) {
        addLineInside(draft, line);
    } else {
        addLineOutside(draft, line);
    }
    if (line.text) {
        if (line.hasLeader(draft.look())) {
            addTextLeader(draft, line);
        }
        draft.addText(*line.text);
    }
}

} // namespace kelplot
