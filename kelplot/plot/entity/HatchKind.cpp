// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>
#include <cmath>

#include <QPainterPath>

#include "geometry/EvenOddJoin.h"
#include "geometry/LoopNesting.h"
#include "plot/entity/AreaFill.h"
#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"
#include "plot/shape/EntityCurves.h"
#include "plot/shape/GradientBrush.h"
#include "plot/shape/HatchLoops.h"
#include "plot/shape/PatternLines.h"

namespace kelplot {

namespace {

Box2 boxOfEdge(const HatchEdge& edge, const PlanMap& map, CurveBox curves) {
    if (const auto* arc = std::get_if<HatchArc>(&edge)) {
        return boxOfArc(arcOf(*arc, map), curves);
    }
    if (const auto* ellipse = std::get_if<HatchEllipse>(&edge)) {
        return boxOfArc(arcOf(*ellipse, map), curves);
    }
    if (const auto* spline = std::get_if<HatchSpline>(&edge)) {
        return boxOfCurve(curveOf(spline->curve, map), curves);
    }
    const auto& line = std::get<HatchLine>(edge);
    const Vec3 ends[] = {{line.start.x, line.start.y, 0.0}, {line.end.x, line.end.y, 0.0}};
    return boxOfPoints(ends, 2, map);
}

/// The loops of a hatch that count, on the page.
std::vector<AreaLoop> visibleLoops(const Hatch& hatch, const PlanMap& map, const Canvas& canvas) {
    std::vector<AreaLoop> loops;
    for (const HatchLoop& loop : hatch.loops) {
        addVisibleLoop(loopPoints(loop, map, canvas.flattening()), loop.textBox, canvas, loops);
    }
    if (hatch.style != HatchStyle::normal) {
        dropNested(loops, hatch.style == HatchStyle::outer ? 1 : 0);
    }
    return loops;
}

/// The lines of a named pattern as a hatch turns and scales them.
std::vector<PatternLine> placedLines(const std::vector<PatternLine>& lines, const HatchPattern& pattern, bool metric) {
    constexpr double millimetresPerInch = 25.4;
    const double scale = pattern.scale / (metric ? 1.0 : millimetresPerInch);
    const Vec2 x = Vec2{std::cos(pattern.angle), std::sin(pattern.angle)} * scale;
    const auto placed = [&](Vec2 v) {
        return x * v.x + leftNormal(x) * v.y;
    };
    std::vector<PatternLine> result = lines;
    for (PatternLine& line : result) {
        line.angle += pattern.angle;
        line.base = placed(line.base);
        line.offset = placed(line.offset);
        std::transform(line.dashes.begin(), line.dashes.end(), line.dashes.begin(),
                       [&](double dash) { return dash * scale; });
    }
    return result;
}

std::vector<PatternLine> linesOf(const Hatch& hatch, const PlotTools& tools) {
    const std::vector<PatternLine>* const named =
        tools.options.patterns.find(QString::fromStdString(hatch.pattern.name));
    return named && hatch.pattern.lines.empty() ? placedLines(*named, hatch.pattern, tools.drawing.metric)
                                                : hatch.pattern.lines;
}

void drawPattern(const Hatch& hatch, const std::vector<AreaLoop>& loops, const EntityStyle& style, const PlanMap& map,
                 PlotTools& tools) {
    Pen pen = tools.linePen(style);
    pen.lineType = nullptr;
    pen.makeCornered(); // lines end at the border
    tools.tintedHatches += drawPatternLines(linesOf(hatch, tools), map, loops, pen, tools) ? 0 : 1;
}

/// The ink for a colour of a gradient; white is meant as it stands.
HT_Color gradientInk(const Colour& colour, const EntityStyle& style, const PlotTools& tools) {
    EntityStyle coloured = style;
    coloured.colour = colour;
    return tools.inkOf(coloured, InkUse::fill);
}

/// Without a painter that knows gradients, the first colour stands for all.
void drawGradient(const Hatch& hatch, const std::vector<AreaLoop>& loops, const PlacedEntity& place, PlotTools& tools) {
    const HatchGradient& gradient = *hatch.gradient;
    const HT_Color first = gradientInk(gradient.first, place.style, tools);
    if (tools.surface.direct == nullptr) {
        tools.pens.setFill(first, place.style.opacity);
        fillAreas(loops, tools.canvas);
        return;
    }
    QPainterPath area;
    for (const std::vector<Vec2>& polygon : joinEvenOdd(loops)) {
        QPolygonF points;
        for (const Vec2 point : polygon) {
            points << QPointF(point.x, point.y);
        }
        area.addPolygon(points);
        area.closeSubpath();
    }
    // The colours spread over all of it, whatever part of it shows.
    const Box2 whole = boxOf(hatch, MeasuredEntity{place.entity, place.map, CurveBox::hull, tools.typesetter});
    const Vec2 direction{std::cos(gradient.angle), std::sin(gradient.angle)};
    const HT_Color second = gradientInk(gradient.second, place.style, tools);
    tools.surface.direct->fill(
        area, gradientBrush(gradient, whole, place.map.mapDirection(direction), colourOf(first), colourOf(second)),
        place.style.opacity / 255.0);
}

void drawBoundaries(const Hatch& hatch, const EntityStyle& style, const PlanMap& map, PlotTools& tools) {
    tools.useLinePen(style);
    for (const HatchLoop& loop : hatch.loops) {
        tools.canvas.drawOutline(loopPoints(loop, map, tools.canvas.flattening()));
    }
}

} // namespace

void draw(const Hatch& hatch, const PlacedEntity& place, PlotTools& tools) {
    const PlanMap map = place.map.raised(hatch.elevation);
    const std::vector<AreaLoop> loops = visibleLoops(hatch, map, tools.canvas);
    if (loops.empty()) {
        return;
    }
    const EntityStyle style = withColour(place.style, hatch.fillColour, tools.drawing);
    if (hatch.gradient) {
        drawGradient(hatch, loops, place, tools);
    } else if (hatch.solid) {
        fillStyled(loops, style, tools);
    } else {
        drawPattern(hatch, loops, style, map, tools);
    }
    if (hatch.outlined) {
        drawBoundaries(hatch, place.style, map, tools);
    }
}

Box2 boxOf(const Hatch& hatch, const MeasuredEntity& place) {
    Box2 box;
    if (!hatch.outlined && !hatch.solid && !hatch.gradient && hatch.pattern.lines.empty() &&
        hatch.pattern.name.empty()) {
        return box;
    }
    const PlanMap map = place.map.raised(hatch.elevation);
    for (const HatchLoop& loop : hatch.loops) {
        for (const HatchEdge& edge : loop.edges) {
            box.add(boxOfEdge(edge, map, place.curves));
        }
        if (loop.edges.empty()) {
            box.add(boxOfSegments(segmentsOf(loop.polyline, true), map, place.curves));
        }
    }
    return box;
}

} // namespace kelplot
