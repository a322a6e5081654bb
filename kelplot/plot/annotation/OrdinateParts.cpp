// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/annotation/OrdinateParts.h"

#include <algorithm>
#include <cmath>

#include "geometry/Direction.h"

namespace kelplot {

namespace {

/// How far from the end of a line with a bend its slanting stretch begins and ends, in arrow sizes.
constexpr double slantStart = 4.0;
constexpr double slantEnd = 2.0;

TextBox boxOfText(const DimensionDraft& draft, Vec2 end, Vec2 along) {
    const double angle = draft.textAngle(angleOf(along), false);
    TextBox box = draft.boxAt(end, angle);
    if (draft.dimension().textPlaced) {
        box.middle = draft.statedMiddle();
    } else {
        box.middle =
            end + along * (box.halfExtent(along) + draft.look().gap) + leftNormal(box.along) * draft.textRise(0.0);
    }
    return box;
}

} // namespace

void addOrdinateParts(DimensionDraft& draft) {
    const Dimension& dimension = draft.dimension();
    const Vec2 axis = unitVector(dimension.level);
    const Vec2 upright = dimension.ordinateOfX ? leftNormal(axis) : axis;
    const Vec2 way = dimension.second - dimension.first;
    const Vec2 along = upright * (dot(way, upright) < 0.0 ? -1.0 : 1.0);
    const double length = dot(way, along);
    const Vec2 aside = way - along * length;
    const double arrow = draft.look().arrowSize;
    const double start = draft.look().extensionGap;

    Vec2 end = dimension.second;
    if (draft.hasText()) {
        const TextBox box = boxOfText(draft, end, along);
        const bool beside = box.onLine(end, along, 0.0).isEmpty();
        if (beside && draft.look().textRow != DimensionLook::TextRow::inLine) {
            end = end + along * std::max(0.0, dot(box.middle - end, along) + box.halfExtent(along));
        }
        draft.addText(box);
    }
    const auto at = [&](double distance) {
        return dimension.first + along * distance;
    };
    const PartLook& look = draft.look().ends[0].extensionLine;
    PartList& parts = draft.parts();
    if (!(aside.length() > arrow * 1e-6)) {
        parts.addLine(at(start), end, look);
        return;
    }
    const double bend = std::max(length - slantStart * arrow, std::min(start, length));
    const double bendEnd = std::max(length - slantEnd * arrow, bend);
    if (start < bend) {
        parts.addLine(at(start), at(bend), look);
    }
    parts.addLine(at(bend), at(bendEnd) + aside, look);
    parts.addLine(at(bendEnd) + aside, end, look);
}

} // namespace kelplot
