// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/png/OutlineStroke.h"

#include <QPainter>
#include <QPainterPathStroker>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "device/png/RoundOutline.h"

namespace kelplot {
namespace {

/// The width of a column in pixels. Narrower ones cost more by their number, wider ones by the pixels in a row.
constexpr int columnWidth = 128;

enum class Side { left, right };

/// The point of a line where it has this x.
QPointF crossingAt(double x, QPointF from, QPointF to) {
    return {x, from.y() + (x - from.x()) / (to.x() - from.x()) * (to.y() - from.y())};
}

/// What lies on one side of an upright line of a polygon that may cross itself. The edge along the line leaves the
/// winding of every point on that side as it was.
QPolygonF sideOf(const QPolygonF& polygon, double x, Side side) {
    const auto keeps = [&](QPointF p) {
        return side == Side::left ? p.x() <= x : p.x() >= x;
    };
    QPolygonF kept;
    QPointF before = polygon.last();
    for (const QPointF& point : polygon) {
        if (keeps(before) != keeps(point)) {
            kept << crossingAt(x, before, point);
        }
        if (keeps(point)) {
            kept << point;
        }
        before = point;
    }
    return kept;
}

QVector<QPolygonF> sideOf(const QVector<QPolygonF>& polygons, double x, Side side) {
    QVector<QPolygonF> kept;
    for (const QPolygonF& polygon : polygons) {
        QPolygonF part = sideOf(polygon, x, side);
        if (part.size() > 2) {
            kept << std::move(part);
        }
    }
    return kept;
}

void fill(const QVector<QPolygonF>& polygons, QPainter& painter, const QBrush& brush) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const QPolygonF& polygon : polygons) {
        path.addPolygon(polygon);
        path.closeSubpath();
    }
    painter.fillPath(path, brush);
}

/// Fills what lies between two columns, the second one excluded, in halves so that long outlines are cut quickly.
void fillColumns(const QVector<QPolygonF>& polygons, int first, int last, QPainter& painter, const QBrush& brush) {
    if (polygons.isEmpty()) {
        return;
    }
    if (last - first == 1) {
        fill(polygons, painter, brush);
        return;
    }
    const int middle = first + (last - first) / 2;
    const double x = static_cast<double>(middle) * columnWidth;
    fillColumns(sideOf(polygons, x, Side::left), first, middle, painter, brush);
    fillColumns(sideOf(polygons, x, Side::right), middle, last, painter, brush);
}

double scaleOf(const QTransform& map) {
    return std::sqrt(std::abs(map.determinant()));
}

/// Tells whether a circle stays one.
bool keepsCircles(const QTransform& map) {
    constexpr double rounding = 1e-9;
    const double slack = rounding * std::abs(map.determinant());
    return map.isAffine() && std::abs(map.m11() * map.m21() + map.m12() * map.m22()) <= slack &&
           std::abs(std::hypot(map.m11(), map.m12()) - std::hypot(map.m21(), map.m22())) <= rounding * scaleOf(map);
}

/// The path of a polyline. One that ends at its start gets ends there and no corner, as the painter draws it: by less
/// than can be seen it stays open.
QPainterPath pathOf(const QPointF* points, int count) {
    constexpr double opening = 1.0 / 1024.0;
    QPainterPath path(points[0]);
    for (int i = 1; i < count; ++i) {
        path.lineTo(points[i]);
    }
    if (points[0] == points[count - 1]) {
        path.lineTo(points[0] + QPointF(opening, 0.0));
    }
    return path;
}

/// The subpaths as polygons that keep to their curves within a part of a pixel.
QVector<QPolygonF> finePolygonsOf(const QPainterPath& path, const QTransform& toPixels) {
    constexpr double fineness = 4.0;
    QVector<QPolygonF> polygons;
    const QTransform finer = toPixels * QTransform::fromScale(fineness, fineness);
    for (QPolygonF polygon : path.toSubpathPolygons(finer)) {
        for (QPointF& point : polygon) {
            point /= fineness;
        }
        polygons << polygon;
    }
    return polygons;
}

int columnAt(double x) {
    return static_cast<int>(std::floor(x / columnWidth));
}

/// Tells whether lines of this extent are worth cutting.
bool isLong(const QRectF& box) {
    return box.width() > 2.0 * columnWidth;
}

bool isRoundPen(const QPen& pen) {
    return pen.capStyle() == Qt::RoundCap && pen.joinStyle() == Qt::RoundJoin;
}

} // namespace

/// Lines up to a pixel wide are drawn without outlines.
OutlineStroke::OutlineStroke(QPen pen, const QTransform& toPixels)
    : m_pen(std::move(pen)), m_toPixels(toPixels),
      m_width(m_pen.isCosmetic() ? m_pen.widthF() : m_pen.widthF() * scaleOf(toPixels)),
      m_applies(m_pen.style() == Qt::SolidLine && m_pen.brush().style() == Qt::SolidPattern && !m_pen.isCosmetic() &&
                m_width > 1.0),
      m_isRound(isRoundPen(m_pen) && keepsCircles(toPixels)),
      m_reach(std::max(m_width, 1.0) * (m_pen.joinStyle() == Qt::MiterJoin ? std::max(1.0, m_pen.miterLimit()) : 1.0) +
              2.0) {
}

bool OutlineStroke::isWorthIt(const QRectF& box) const {
    return m_isRound || isLong(box);
}

/// The outline of a path's lines, as near to the true one as the painter's own, in pixels.
QVector<QPolygonF> OutlineStroke::outlineOf(const QPainterPath& lines) const {
    if (m_isRound) {
        QVector<QPolygonF> outlines = finePolygonsOf(lines, m_toPixels);
        for (QPolygonF& line : outlines) {
            line = roundOutline(line, m_width / 2.0);
        }
        return outlines;
    }
    constexpr double curveThreshold = 0.02;
    QPainterPathStroker stroker(m_pen);
    stroker.setCurveThreshold(curveThreshold);
    return finePolygonsOf(stroker.createStroke(lines), m_toPixels);
}

void OutlineStroke::fillOutline(const QVector<QPolygonF>& outline, const QRect& shown, QPainter& painter) const {
    QRectF box;
    for (const QPolygonF& polygon : outline) {
        box |= polygon.boundingRect();
    }
    if (!isLong(box)) {
        fill(outline, painter, m_pen.brush());
        return;
    }
    const double left = shown.left();
    const double right = shown.left() + shown.width();
    const QVector<QPolygonF> visible = sideOf(sideOf(outline, left, Side::right), right, Side::left);
    fillColumns(visible, columnAt(left), columnAt(right) + 1, painter, m_pen.brush());
}

void OutlineStroke::drawLine(const QPointF* points, int count, const QRect& shown, QPainter& painter) const {
    if (!m_isRound) {
        drawPath(pathOf(points, count), shown, painter);
        return;
    }
    QPolygonF line;
    line.reserve(count);
    std::transform(points, points + count, std::back_inserter(line),
                   [&](const QPointF& point) { return m_toPixels.map(point); });
    fillOutline({roundOutline(line, m_width / 2.0)}, shown, painter);
}

void OutlineStroke::drawPath(const QPainterPath& lines, const QRect& shown, QPainter& painter) const {
    fillOutline(outlineOf(lines), shown, painter);
}

} // namespace kelplot
