// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/png/LongStroke.h"

#include <QPainter>
#include <QPainterPathStroker>
#include <algorithm>
#include <cmath>

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

/// The outline of a path's lines, as the painter would make it, in pixels.
QVector<QPolygonF> outlineOf(const QPainterPath& lines, const QPen& pen, const QTransform& toPixels) {
    constexpr double curveThreshold = 0.02; // offset curves are as near to the true ones as the painter's own
    constexpr double fineness = 4.0;        // polygons keep to curves within a part of a unit
    QPainterPathStroker stroker(pen);
    stroker.setCurveThreshold(curveThreshold);
    QVector<QPolygonF> polygons;
    const QTransform finer = toPixels * QTransform::fromScale(fineness, fineness);
    for (QPolygonF polygon : stroker.createStroke(lines).toSubpathPolygons(finer)) {
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

} // namespace

/// Lines up to a pixel wide are drawn without outlines.
bool LongStroke::applies() const {
    return m_pen.style() == Qt::SolidLine && m_pen.brush().style() == Qt::SolidPattern && !m_pen.isCosmetic() &&
           m_pen.widthF() * scaleOf(m_toPixels) > 1.0;
}

double LongStroke::reach() const {
    const double width = std::max(m_pen.isCosmetic() ? m_pen.widthF() : m_pen.widthF() * scaleOf(m_toPixels), 1.0);
    return width * std::max(1.0, m_pen.joinStyle() == Qt::MiterJoin ? m_pen.miterLimit() : 1.0) + 2.0;
}

bool LongStroke::isLong(const QRectF& box) {
    return box.width() > 2.0 * columnWidth;
}

void LongStroke::draw(const QPainterPath& lines, const QRect& shown, QPainter& painter) const {
    const QVector<QPolygonF> outline = outlineOf(lines, m_pen, m_toPixels);
    const double left = shown.left();
    const double right = shown.left() + shown.width();
    const QVector<QPolygonF> visible = sideOf(sideOf(outline, left, Side::right), right, Side::left);
    fillColumns(visible, columnAt(left), columnAt(right) + 1, painter, m_pen.brush());
}

} // namespace kelplot
