// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/AreaFill.h"

#include <algorithm>
#include <cmath>

#include "base/Angles.h"
#include "geometry/EvenOddJoin.h"
#include "plot/shape/PatternLines.h"

namespace kelplot {

namespace {

uint8_t partOf(uint8_t opacity, double part) {
    return static_cast<uint8_t>(std::lround(opacity * std::clamp(part, 0.0, 1.0)));
}

/// As `drawPatternLines`, for one family of lines.
bool drawFamily(const LineFamily& family, const std::vector<AreaLoop>& loops, Pen pen, PlotTools& tools) {
    const double finest = 1.5 * tools.target.hairlineWidth;
    const uint8_t opacity = pen.opacity;
    const double density = family.density(pen.width);
    LineFamily drawn = family;
    if (family.period > 0.0 && family.period < finest) {
        pen.opacity = partOf(pen.opacity, density);
        drawn.period = 0.0;
    }
    const bool isFine = family.spacing < finest;
    const auto stretches = isFine ? std::nullopt : stretchesIn(loops, drawn, tools.patternDashesLeft);
    const double dashes = stretches ? dashCount(*stretches, drawn) : 0.0;
    if (stretches && dashes <= tools.patternDashesLeft) {
        tools.patternDashesLeft -= dashes;
        tools.pens.setPen(pen);
        forEachDash(*stretches, drawn, [&](Vec2 from, Vec2 to) {
            from == to ? tools.canvas.drawDot(from) : tools.canvas.drawSegment(from, to);
        });
        return true;
    }
    tools.pens.setFill(pen.ink, partOf(opacity, density * pen.width / family.spacing));
    fillAreas(loops, tools.canvas);
    return isFine;
}

/// The bars or squares of a pattern of ink, in millimetres.
struct InkPattern {
    double width; ///< of the bars
    std::vector<PatternLine> lines;
};

PatternLine bars(double degrees) {
    const double angle = radiansFromDegrees(degrees);
    return {angle, {}, leftNormal({std::cos(angle), std::sin(angle)}), {}};
}

/// The pattern that a fill style stands for, a millimetre from bar to bar; none for a solid one.
const InkPattern& inkPattern(HT_PlotStyle::FillStyle style) {
    constexpr double half = 0.5;
    constexpr double thin = 0.25;
    static const InkPattern patterns[] = {
        {},                                                    // solid
        {half, {{0.0, {}, {half, half}, {half, -half}}}},      // squares
        {thin, {bars(0.0), bars(90.0)}},                       // cross
        {thin, {bars(45.0), bars(-45.0)}},                     // diagonal cross
        {half, {bars(0.0)}},                                   // horizontal
        {half, {bars(-45.0)}},                                 // falling to the right
        {half, {bars(45.0)}},                                  // rising to the right
        {half, {{0.0, {}, {0.0, 2.0 * half}, {half, -half}}}}, // dots
        {half, {bars(90.0)}},                                  // vertical
    };
    const auto index = static_cast<size_t>(style);
    return patterns[index < std::size(patterns) ? index : 0];
}

} // namespace

void addVisibleLoop(const std::vector<Vec2>& points, bool alwaysHole, const Canvas& canvas,
                    std::vector<AreaLoop>& loops) {
    std::vector<Vec2> visible = canvas.visiblePart(points);
    for (Vec2& point : visible) {
        point = {std::round(point.x), std::round(point.y)};
    }
    visible.erase(std::unique(visible.begin(), visible.end()), visible.end());
    if (visible.size() > 2) {
        loops.push_back({std::move(visible), alwaysHole});
    }
}

void fillAreas(const std::vector<AreaLoop>& loops, Canvas& canvas) {
    for (const std::vector<Vec2>& polygon : joinEvenOdd(loops)) {
        canvas.fillPolygon(polygon);
    }
}

bool drawPatternLines(const std::vector<PatternLine>& lines, const PlanMap& map, const std::vector<AreaLoop>& loops,
                      const Pen& pen, PlotTools& tools) {
    bool isComplete = true;
    for (const PatternLine& line : lines) {
        if (const auto family = familyOf(line, map)) {
            isComplete = drawFamily(*family, loops, pen, tools) && isComplete;
        }
    }
    return isComplete;
}

void fillStyled(const std::vector<AreaLoop>& loops, const EntityStyle& style, PlotTools& tools) {
    const InkPattern& pattern = inkPattern(tools.ruleFor(style).fill.value_or(HT_PlotStyle::FillSolid));
    if (pattern.lines.empty()) {
        tools.useFill(style);
        fillAreas(loops, tools.canvas);
        return;
    }
    const double unit = tools.target.deviceUnitsPerMillimetre;
    Pen pen{tools.inkOf(style, InkUse::fill), style.opacity, pattern.width * unit};
    pen.makeCornered();
    tools.tintedHatches +=
        drawPatternLines(pattern.lines, PlanMap(Affine2::scaling(unit, -unit)), loops, pen, tools) ? 0 : 1;
}

void fillStyled(const std::vector<Vec2>& polygon, const EntityStyle& style, PlotTools& tools) {
    if (!tools.ruleFor(style).fill) {
        tools.useFill(style);
        tools.canvas.fillPolygon(polygon);
        return;
    }
    std::vector<AreaLoop> loops;
    addVisibleLoop(polygon, false, tools.canvas, loops);
    fillStyled(loops, style, tools);
}

} // namespace kelplot
