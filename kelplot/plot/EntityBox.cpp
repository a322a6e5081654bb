// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/EntityBox.h"

#include "plot/shape/EntityCurves.h"
#include "plot/shape/HatchLoops.h"
#include "plot/shape/PolylinePath.h"

namespace kelplot {

namespace {

/// Device units; no page is so large.
constexpr double longestOnPage = 1e12;

void addFinite(Vec2 p, Box2& box) {
    if (p.isFinite()) {
        box.add(p);
    }
}

Box2 boxOfControls(const NurbsCurve& curve) {
    Box2 box;
    for (const NurbsCurve::Control& control : curve.controls) {
        addFinite(control.scaled * (1.0 / control.weight), box);
    }
    return box;
}

struct BoxMaker {
    const Entity& entity;
    const PlanMap& map;
    CurveBox curves;
    const Typesetter& texts;

    Box2 operator()(const PointEntity& point) const { return ofPoints(&point.position, 1); }
    Box2 operator()(const Line& line) const {
        const Vec3 ends[] = {line.start, line.end};
        const bool finite = map.mapPoint(line.start).isFinite() && map.mapPoint(line.end).isFinite();
        return ofPoints(ends, finite ? 2 : 0);
    }
    Box2 operator()(const ConstructionLine& line) const;
    Box2 operator()(const Circle& circle) const { return ofArc(arcOf(circle, map)); }
    Box2 operator()(const Arc& arc) const { return ofArc(arcOf(arc, map)); }
    Box2 operator()(const Ellipse& ellipse) const { return ofArc(arcOf(ellipse, entity.extrusion, map)); }
    Box2 operator()(const Polyline& polyline) const;
    Box2 operator()(const Spline& spline) const { return ofCurve(curveOf(spline, map)); }
    Box2 operator()(const Solid& solid) const { return ofPoints(solid.corners.data(), solid.corners.size()); }
    Box2 operator()(const Face3d& face) const { return ofPoints(face.corners.data(), face.corners.size()); }
    Box2 operator()(const Hatch& hatch) const;
    Box2 operator()(const Text& text) const { return texts.place(text).boxThrough(map); }
    Box2 operator()(const MText& text) const { return texts.place(text).boxThrough(map); }
    Box2 operator()(const Image& image) const;
    Box2 operator()(const Wipeout& wipeout) const { return ofPoints(wipeout.boundary.data(), wipeout.boundary.size()); }
    Box2 operator()(const Insert&) const { return {}; }

private:
    Box2 ofPoints(const Vec3* points, size_t count) const {
        Box2 box;
        for (size_t i = 0; i < count; ++i) {
            addFinite(map.mapPoint(points[i]), box);
        }
        return box;
    }
    static Box2 ofArc(const std::optional<EllipticArc>& arc) { return arc ? arc->box() : Box2{}; }
    Box2 ofCurve(const std::optional<NurbsCurve>& curve) const;
    Box2 ofSegments(const std::vector<PolylineSegment>& segments) const;
    Box2 ofEdge(const HatchEdge& edge) const;
    Box2 ofLoops(const std::vector<HatchLoop>& loops) const;
};

Box2 BoxMaker::ofCurve(const std::optional<NurbsCurve>& curve) const {
    if (!curve) {
        return {};
    }
    constexpr double precision = 1e-4;
    const Box2 hull = boxOfControls(*curve);
    const double tolerance = precision * std::max(hull.width(), hull.height());
    if (curves == CurveBox::hull || !(tolerance > 0.0)) {
        return hull;
    }
    std::vector<Vec2> points;
    curve->flatten({tolerance, hull}, points);
    Box2 box;
    for (const Vec2 point : points) {
        addFinite(point, box);
    }
    return box;
}

Box2 BoxMaker::ofSegments(const std::vector<PolylineSegment>& segments) const {
    Box2 box;
    for (const PolylineSegment& segment : segments) {
        if (const auto arc = segment.arc()) {
            const EllipticArc mapped = mapArc(*arc, segment.from.position.z, map);
            box.add(mapped.isFinite() ? mapped.box() : Box2{});
        } else {
            addFinite(map.mapPoint(segment.from.position), box);
            addFinite(map.mapPoint(segment.to.position), box);
        }
    }
    return box;
}

/// What it may cover of a page, which is all of it, but nothing that a drawing is fitted to.
Box2 BoxMaker::operator()(const ConstructionLine& line) const {
    const Vec2 start = map.mapPoint(line.start);
    if (curves == CurveBox::exact || !start.isFinite()) {
        return {};
    }
    return Box2{start, start}.inflated(longestOnPage);
}

Box2 BoxMaker::operator()(const Polyline& polyline) const {
    const std::vector<PolylineSegment> segments = segmentsOf(polyline.vertices, polyline.closed);
    Box2 box = ofSegments(segments);
    if (std::none_of(segments.begin(), segments.end(), [](const auto& segment) { return segment.isWide(); })) {
        return box;
    }
    constexpr double precision = 1e-4;
    const Flattening rules{precision * std::max(box.width(), box.height()), {}};
    for (const auto& outline : wideOutlines(segments, polyline.closed, map, rules, 0.0)) {
        for (const Vec2 point : outline) {
            addFinite(point, box);
        }
    }
    return box;
}

Box2 BoxMaker::ofEdge(const HatchEdge& edge) const {
    if (const auto* arc = std::get_if<HatchArc>(&edge)) {
        return ofArc(arcOf(*arc, map));
    }
    if (const auto* ellipse = std::get_if<HatchEllipse>(&edge)) {
        return ofArc(arcOf(*ellipse, map));
    }
    if (const auto* spline = std::get_if<HatchSpline>(&edge)) {
        return ofCurve(curveOf(spline->curve, map));
    }
    const auto& line = std::get<HatchLine>(edge);
    const Vec3 ends[] = {{line.start.x, line.start.y, 0.0}, {line.end.x, line.end.y, 0.0}};
    return ofPoints(ends, 2);
}

Box2 BoxMaker::operator()(const Image& image) const {
    Box2 box;
    for (const Vec2 pixel : image.outline()) {
        addFinite(map.mapPoint(image.pointAt(pixel)), box);
    }
    return box;
}

Box2 BoxMaker::operator()(const Hatch& hatch) const {
    if (!hatch.solid) { // patterns are not drawn
        return {};
    }
    const PlanMap raised = map.raised(hatch.elevation);
    return BoxMaker{entity, raised, curves, texts}.ofLoops(hatch.loops);
}

Box2 BoxMaker::ofLoops(const std::vector<HatchLoop>& loops) const {
    Box2 box;
    for (const HatchLoop& loop : loops) {
        for (const HatchEdge& edge : loop.edges) {
            box.add(ofEdge(edge));
        }
        if (loop.edges.empty()) {
            box.add(ofSegments(segmentsOf(loop.polyline, true)));
        }
    }
    return box;
}

} // namespace

Box2 boxOf(const Entity& entity, const PlanMap& map, CurveBox curves, const Typesetter& texts) {
    return std::visit(BoxMaker{entity, map, curves, texts}, entity.geometry);
}

} // namespace kelplot
