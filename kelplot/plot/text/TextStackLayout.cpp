// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/TextStackLayout.h"

#include <algorithm>

namespace kelplot {

namespace {

// In heights of a capital letter.
constexpr double gap = 0.5; ///< between the two texts
constexpr double barWidth = 0.06;
constexpr double sideBearing = 0.1;
constexpr double slashWidth = 0.5;

SetStack setSlanted(const TextLine& upper, const TextLine& lower, const TextLook& look) {
    const double slash = slashWidth * look.height;
    SetStack set;
    set.height = look.height * (1.0 + gap);
    set.line.block.add(upper.block, {0.0, gap * look.height});
    set.line.block.add(lower.block, {upper.width + slash, 0.0});
    set.line.block.addStroke(
        {{upper.width, 0.0}, {upper.width + slash, set.height}, barWidth * look.height, look.colour});
    set.line.width = upper.width + slash + lower.width;
    return set;
}

} // namespace

SetStack setStack(const TextStack& stack, const TextLook& look, FontSet& fonts) {
    const TextLine upper = lineOf(QString::fromStdString(stack.upper), look, fonts);
    const TextLine lower = lineOf(QString::fromStdString(stack.lower), look, fonts);
    if (stack.divider == TextStack::Divider::slash) {
        return setSlanted(upper, lower, look);
    }
    const bool barred = stack.divider == TextStack::Divider::bar;
    const double bearing = sideBearing * look.height;
    const double widest = std::max(upper.width, lower.width);
    // The numbers of a fraction are centred; tolerances are aligned on the left, so that their signs line up.
    const auto startOf = [&](const TextLine& line) {
        return bearing + (barred ? (widest - line.width) / 2.0 : 0.0);
    };
    SetStack set;
    set.height = look.height * (2.0 + gap);
    set.line.width = widest + 2.0 * bearing;
    set.line.block.add(upper.block, {startOf(upper), look.height * (1.0 + gap)});
    set.line.block.add(lower.block, {startOf(lower), 0.0});
    if (barred && widest > 0.0) {
        const double y = look.height * (1.0 + gap / 2.0);
        set.line.block.addStroke({{0.0, y}, {set.line.width, y}, barWidth * look.height, look.colour});
    }
    return set;
}

} // namespace kelplot
