// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>

#include "plot/entity/KindBoxes.h"
#include "plot/entity/PlotTools.h"
#include "plot/shape/PolylinePath.h"

namespace kelplot {

namespace {

/// Where the width of a polyline's lines comes from: the entity's weight, or the polyline itself.
enum class LineWidth { ofEntity, own };

/// Strokes with the pen in force. Dashes begin again at each vertex unless the polyline says that they run on.
void strokeSegments(const Polyline& polyline, const std::vector<PolylineSegment>& segments, LineWidth width,
                    const PlanMap& map, PlotTools& tools) {
    std::vector<Vec2> path;
    std::vector<size_t> corners;
    for (const PolylineSegment& segment : segments) {
        if (!path.empty() && !polyline.continuousPattern) {
            corners.push_back(path.size() - 1);
        }
        flattenSegment(segment, map, tools.canvas.flattening(), path);
    }
    // A wide line gets its mitre at the vertex where it closes by running on over its beginning.
    if (width == LineWidth::own && polyline.closed && !tools.pens.isDashed() && path.size() > 3) {
        const Vec2 second = path[1];
        path.push_back(second);
    }
    tools.canvas.drawPolyline(path, corners);
}

/// The wide pieces as areas, the others as lines.
void drawVaryingWidth(const std::vector<PolylineSegment>& segments, bool closed, const PlacedEntity& place,
                      PlotTools& tools) {
    const Flattening rules{tools.canvas.flattening().tolerance, {}};
    const double overlap = 1.5 * tools.target.hairlineWidth; // covers a seam that runs askew to the dots of the device
    const auto outlines = wideOutlines(segments, closed, place.map, rules, overlap);
    if (!outlines.empty()) {
        tools.pens.setFill(tools.inkOf(place.style, InkUse::line), place.style.opacity);
    }
    for (const std::vector<Vec2>& outline : outlines) {
        tools.canvas.fillPolygon(outline);
    }
    tools.useLinePen(place.style);
    for (const PolylineSegment& segment : segments) {
        if (!segment.isWide()) {
            std::vector<Vec2> path;
            flattenSegment(segment, place.map, tools.canvas.flattening(), path);
            tools.canvas.drawPolyline(path);
        }
    }
}

/// Where a polyline without any length is, as seen through `map`.
std::optional<Vec2> dotOf(const Polyline& polyline, const PlanMap& map) {
    for (const PolylineVertex& vertex : polyline.vertices) {
        if (const Vec2 dot = map.mapPoint(vertex.position); dot.isFinite()) {
            return dot;
        }
    }
    return std::nullopt;
}

} // namespace

void draw(const Polyline& polyline, const PlacedEntity& place, PlotTools& tools) {
    const std::vector<PolylineSegment> segments = segmentsOf(polyline.vertices, polyline.closed);
    if (segments.empty()) {
        tools.useLinePen(place.style);
        if (const auto dot = dotOf(polyline, place.map)) {
            tools.canvas.drawSegment(*dot, *dot);
        }
        return;
    }
    const std::optional<double> width = commonWidth(segments);
    if (width && !(*width > 0.0)) {
        tools.useLinePen(place.style);
        strokeSegments(polyline, segments, LineWidth::ofEntity, place.map, tools);
    } else if (width && place.map.keepsShapes()) {
        Pen pen = tools.linePen(place.style);
        pen.width = std::max(*width * place.map.meanScale(), tools.target.hairlineWidth);
        pen.makeCornered();
        tools.pens.setPen(pen);
        strokeSegments(polyline, segments, LineWidth::own, place.map, tools);
    } else {
        drawVaryingWidth(segments, polyline.closed, place, tools);
    }
}

Box2 boxOf(const Polyline& polyline, const MeasuredEntity& place) {
    const std::vector<PolylineSegment> segments = segmentsOf(polyline.vertices, polyline.closed);
    Box2 box = boxOfSegments(segments, place.map, place.curves);
    if (segments.empty()) {
        if (const auto dot = dotOf(polyline, place.map)) {
            box.add(*dot);
        }
        return box;
    }
    if (std::none_of(segments.begin(), segments.end(), [](const auto& segment) { return segment.isWide(); })) {
        return box;
    }
    constexpr double precision = 1e-4;
    const Flattening rules{precision * std::max(box.width(), box.height()), {}};
    for (const auto& outline : wideOutlines(segments, polyline.closed, place.map, rules, 0.0)) {
        box.add(boxOfPoints(outline));
    }
    return box;
}

} // namespace kelplot
