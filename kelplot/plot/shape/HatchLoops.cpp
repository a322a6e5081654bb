// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/shape/HatchLoops.h"

#include "plot/shape/EntityCurves.h"
#include "plot/shape/PolylinePath.h"

namespace kelplot {

namespace {

/// Gives the points of an edge in the direction of the boundary.
struct EdgeFlattener {
    const PlanMap& map;
    const Flattening& rules;
    std::vector<Vec2>& out;

    void flatten(const std::optional<EllipticArc>& arc, bool forwards) const {
        if (arc) {
            arc->flatten(rules, out);
        }
        if (!forwards) {
            std::reverse(out.begin(), out.end());
        }
    }
    void operator()(const HatchLine& line) const { out = {map.mapPoint(line.start), map.mapPoint(line.end)}; }
    void operator()(const HatchArc& arc) const { flatten(arcOf(arc, map), arc.counterClockwise); }
    void operator()(const HatchEllipse& ellipse) const { flatten(arcOf(ellipse, map), ellipse.counterClockwise); }
    void operator()(const HatchSpline& spline) const {
        if (const auto curve = curveOf(spline.curve, map)) {
            curve->flatten(rules, out);
        }
    }
};

double gapTo(Vec2 p, const std::vector<Vec2>& edge) {
    return std::min((edge.front() - p).length(), (edge.back() - p).length());
}

/// Appends an edge to those before it. Some programs write edges against the direction of the boundary;
/// the end of such an edge is nearer than its start, and it is reversed.
void append(std::vector<Vec2>& path, std::vector<Vec2>& edge, bool second) {
    if (second && gapTo(path.front(), edge) < gapTo(path.back(), edge)) {
        std::reverse(path.begin(), path.end());
    }
    if (!path.empty() && (edge.back() - path.back()).length() < (edge.front() - path.back()).length()) {
        std::reverse(edge.begin(), edge.end());
    }
    path.insert(path.end(), edge.begin(), edge.end());
}

std::vector<Vec2> pathOfEdges(const std::vector<HatchEdge>& edges, const PlanMap& map, const Flattening& rules) {
    std::vector<Vec2> path;
    std::vector<Vec2> edge;
    size_t edgeCount = 0;
    for (const HatchEdge& record : edges) {
        edge.clear();
        std::visit(EdgeFlattener{map, rules, edge}, record);
        const bool finite = std::all_of(edge.begin(), edge.end(), [](Vec2 p) { return p.isFinite(); });
        if (!edge.empty() && finite) {
            append(path, edge, ++edgeCount == 2);
        }
    }
    return path;
}

} // namespace

std::vector<Vec2> loopPoints(const HatchLoop& loop, const PlanMap& map, const Flattening& rules) {
    if (!loop.edges.empty()) {
        return pathOfEdges(loop.edges, map, rules);
    }
    std::vector<Vec2> points;
    for (const PolylineSegment& segment : segmentsOf(loop.polyline, true)) {
        flattenSegment(segment, map, rules, points);
    }
    return points;
}

} // namespace kelplot
