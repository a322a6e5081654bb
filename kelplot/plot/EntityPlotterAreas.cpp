// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/EvenOddJoin.h"
#include "geometry/LoopNesting.h"
#include "plot/EntityPlotter.h"
#include "plot/shape/HatchLoops.h"
#include "plot/shape/PolylinePath.h"

namespace kelplot {

namespace {

/// On the grid of the device, where the renderer puts the points anyway, it is certain which loops touch.
void snapToGrid(std::vector<Vec2>& points) {
    for (Vec2& point : points) {
        point = {std::round(point.x), std::round(point.y)};
    }
    points.erase(std::unique(points.begin(), points.end()), points.end());
}

} // namespace

void EntityPlotter::draw(const Hatch& hatch, const Current& current) {
    if (!hatch.solid) {
        return;
    }
    std::vector<AreaLoop> loops;
    const PlanMap map = current.map.raised(hatch.elevation);
    for (const HatchLoop& loop : hatch.loops) {
        std::vector<Vec2> points = m_canvas.visiblePart(loopPoints(loop, map, m_canvas.flattening()));
        snapToGrid(points);
        if (points.size() > 2) {
            loops.push_back({std::move(points), loop.textBox});
        }
    }
    if (hatch.style != HatchStyle::normal) {
        dropNested(loops, hatch.style == HatchStyle::outer ? 1 : 0);
    }
    useFill(current);
    for (const std::vector<Vec2>& polygon : joinEvenOdd(loops)) {
        m_canvas.fillPolygon(polygon);
    }
}

void EntityPlotter::draw(const Polyline& polyline, const Current& current) {
    const std::vector<PolylineSegment> segments = segmentsOf(polyline.vertices, polyline.closed);
    const std::optional<double> width = commonWidth(segments);
    if (width && !(*width > 0.0)) {
        useLinePen(current);
        strokeSegments(polyline, segments, LineWidth::ofEntity, current.map);
    } else if (width && current.map.keepsShapes()) {
        Pen pen = linePen(current.style);
        pen.width = std::max(*width * current.map.meanScale(), m_target.hairlineWidth);
        pen.cornered = true;
        m_pens.setPen(pen);
        strokeSegments(polyline, segments, LineWidth::own, current.map);
    } else {
        drawVaryingWidth(segments, polyline.closed, current);
    }
}

/// Dashes start again at each vertex unless the polyline says that they run on.
void EntityPlotter::strokeSegments(const Polyline& polyline, const std::vector<PolylineSegment>& segments,
                                   LineWidth width, const PlanMap& map) {
    m_path.clear();
    const bool restarts = m_pens.isDashed() && !polyline.continuousPattern;
    for (const PolylineSegment& segment : segments) {
        flattenSegment(segment, map, m_canvas.flattening(), m_path);
        if (restarts) {
            m_canvas.drawPolyline(m_path);
            m_path.clear();
        }
    }
    // A wide line gets its mitre at the vertex where it closes by running on over its beginning.
    if (width == LineWidth::own && polyline.closed && !m_pens.isDashed() && m_path.size() > 3) {
        const Vec2 second = m_path[1];
        m_path.push_back(second);
    }
    if (!m_path.empty()) {
        m_canvas.drawPolyline(m_path);
    }
}

void EntityPlotter::drawVaryingWidth(const std::vector<PolylineSegment>& segments, bool closed,
                                     const Current& current) {
    const Flattening rules{m_canvas.flattening().tolerance, {}};
    const double overlap = 1.5 * m_target.hairlineWidth; // covers a seam that runs askew through the dots of the device
    const auto outlines = wideOutlines(segments, closed, current.map, rules, overlap);
    if (!outlines.empty()) {
        m_pens.setFill(inkOf(current.style, InkUse::line), current.style.opacity);
    }
    for (const std::vector<Vec2>& outline : outlines) {
        m_canvas.fillPolygon(outline);
    }
    useLinePen(current);
    for (const PolylineSegment& segment : segments) {
        if (!segment.isWide()) {
            m_path.clear();
            flattenSegment(segment, current.map, m_canvas.flattening(), m_path);
            m_canvas.drawPolyline(m_path);
        }
    }
}

} // namespace kelplot
