// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/EntityPlotter.h"

#include "base/Angles.h"
#include "geometry/BoxClip.h"
#include "plot/EntityBox.h"
#include "plot/shape/EntityCurves.h"
#include "plot/shape/PointMark.h"

namespace kelplot {

namespace {

double pointSizeOn(const PlotTarget& target, double stated, double unitSize) {
    constexpr double usualPercentage = 5.0;
    if (stated > 0.0) {
        return stated * unitSize;
    }
    return target.pageBox.height() / 100.0 * (stated < 0.0 ? -stated : usualPercentage);
}

} // namespace

EntityPlotter::EntityPlotter(const Drawing& drawing, const PlotTarget& target, const PlotStyleOptions& options,
                             HT_Renderer& renderer)
    : m_drawing(drawing), m_target(target), m_options(options),
      m_pens(renderer, target.hairlineWidth, target.thinnestDashed), m_canvas(renderer, target, m_pens),
      m_pictures(drawing, target, options.monochrome, renderer), m_typesetter(drawing, options.fonts),
      m_texts(m_typesetter, target, options.texts, renderer), m_unitSize(PlanMap(target.toDevice).meanScale()),
      m_pointSize(pointSizeOn(target, drawing.pointSize, m_unitSize)) {
}

Box2 EntityPlotter::inkBox(const Entity& entity, const EntityStyle& style, const PlanMap& map) const {
    const bool isPoint = std::holds_alternative<PointEntity>(entity.geometry);
    const double margin = linePen(style).width + (isPoint ? m_pointSize : 0.0);
    return boxOf(entity, map, CurveBox::hull, m_typesetter).inflated(margin);
}

void EntityPlotter::visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) {
    if (!m_canvas.mayShow(inkBox(entity, style, map), 0.0)) {
        return;
    }
    const Current current{entity, style, map};
    std::visit([&](const auto& geometry) { draw(geometry, current); }, entity.geometry);
}

HT_Color EntityPlotter::inkOf(const EntityStyle& style, InkUse use) const {
    return inkFor(style.colour, use, m_options.pens.ruleFor(style.colour), m_options.monochrome);
}

Pen EntityPlotter::linePen(const EntityStyle& style) const {
    const PenRule& rule = m_options.pens.ruleFor(style.colour);
    const double millimetres = rule.width.value_or(style.lineWeight / 100.0) * m_options.lineWeightScale;
    Pen pen;
    pen.ink = inkOf(style, InkUse::line);
    pen.opacity = style.opacity;
    pen.width = std::max(millimetres * m_target.deviceUnitsPerMillimetre, m_target.hairlineWidth);
    if (style.lineType < m_drawing.lineTypes.size() && !m_drawing.lineTypes[style.lineType].pattern.empty()) {
        pen.lineType = &m_drawing.lineTypes[style.lineType];
        pen.patternScale = style.lineTypeScale * m_unitSize;
    }
    return pen;
}

void EntityPlotter::useFill(const Current& current) {
    m_pens.setFill(inkOf(current.style, InkUse::fill), current.style.opacity);
}

void EntityPlotter::draw(const PointEntity& point, const Current& current) {
    const Vec2 at = current.map.mapPoint(point.position);
    const PointMark mark = pointMarkFor(m_drawing.pointMode, m_pointSize);
    Pen pen = linePen(current.style);
    pen.lineType = nullptr;
    m_pens.setPen(pen);
    if (mark.dot) {
        m_canvas.drawDot(at);
    }
    for (const auto& line : mark.lines) {
        m_path.clear();
        for (const Vec2 corner : line) {
            m_path.push_back(at + corner);
        }
        m_canvas.drawPolyline(m_path);
    }
    if (mark.circleRadius > 0.0) {
        m_canvas.drawArc({at, {mark.circleRadius, 0.0}, {0.0, mark.circleRadius}, 0.0, turn});
    }
}

void EntityPlotter::draw(const Line& line, const Current& current) {
    useLinePen(current);
    m_canvas.drawSegment(current.map.mapPoint(line.start), current.map.mapPoint(line.end));
}

/// Only what crosses the visible part of the page, its pen's width included.
void EntityPlotter::draw(const ConstructionLine& line, const Current& current) {
    const Vec2 start = current.map.mapPoint(line.start);
    const Vec2 direction = current.map.mapDirection(line.direction);
    const double length = direction.length();
    if (!(length > 0.0) || !start.isFinite()) {
        return;
    }
    const Box2 page = m_target.visibleBox().inflated(linePen(current.style).width);
    // Far enough to leave the page from wherever it starts.
    const double reach = (start - page.center()).length() + page.width() + page.height();
    const Vec2 end = direction * (reach / length);
    useLinePen(current);
    for (const std::vector<Vec2>& piece : clipPolyline({line.bothWays ? start - end : start, start + end}, page)) {
        m_canvas.drawPolyline(piece);
    }
}

void EntityPlotter::draw(const Circle& circle, const Current& current) {
    strokeArc(arcOf(circle, current.map), current);
}

void EntityPlotter::draw(const Arc& arc, const Current& current) {
    strokeArc(arcOf(arc, current.map), current);
}

void EntityPlotter::draw(const Ellipse& ellipse, const Current& current) {
    strokeArc(arcOf(ellipse, current.entity.extrusion, current.map), current);
}

void EntityPlotter::strokeArc(const std::optional<EllipticArc>& arc, const Current& current) {
    if (arc) {
        useLinePen(current);
        m_canvas.drawArc(*arc);
    }
}

void EntityPlotter::draw(const Spline& spline, const Current& current) {
    if (const auto curve = curveOf(spline, current.map)) {
        m_path.clear();
        curve->flatten(m_canvas.flattening(), m_path);
        useLinePen(current);
        m_canvas.drawPolyline(m_path);
    }
}

void EntityPlotter::draw(const Solid& solid, const Current& current) {
    m_path.clear();
    for (const Vec3& corner : solid.corners) {
        m_path.push_back(current.map.mapPoint(corner));
    }
    useFill(current);
    m_canvas.fillPolygon(m_path);
}

void EntityPlotter::draw(const Face3d& face, const Current& current) {
    useLinePen(current);
    for (size_t i = 0; i < face.corners.size(); ++i) {
        const Vec3& from = face.corners[i];
        const Vec3& to = face.corners[(i + 1) % face.corners.size()];
        if (face.edgeVisible[i] && !(from == to)) { // a face of three corners states the last one twice
            m_canvas.drawSegment(current.map.mapPoint(from), current.map.mapPoint(to));
        }
    }
}

} // namespace kelplot
