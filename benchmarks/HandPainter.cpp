// SPDX-License-Identifier: BSD-3-Clause
#include "HandPainter.h"

#include <cmath>

#include <QPainterPath>
#include <QPen>
#include <QVarLengthArray>

namespace {

int rounded(double value) {
    const double shifted = value < 0.0 ? value - 0.5 : value + 0.5;
    if (shifted > 2147483647.0) {
        return INT32_MAX;
    }
    return shifted < -2147483648.0 ? INT32_MIN : static_cast<int>(shifted);
}

using Buffer = QVarLengthArray<QPointF, 2048>;

void snap(const HT_Double_Point* points, int count, double scale, Buffer& out) {
    out.reserve(count);
    int lastX = 0;
    int lastY = 0;
    for (int i = 0; i < count; ++i) {
        const int x = rounded(points[i].x * scale);
        const int y = rounded(points[i].y * scale);
        if (i == 0 || x != lastX || y != lastY) {
            out.append(QPointF(x, y));
            lastX = x;
            lastY = y;
        }
    }
}

} // namespace

void HandPainter::point(const HT_Double_Point& p) {
    const bool isOpaque = color.alpha() == 255;
    const int plotX = rounded(p.x);
    const int plotY = rounded(p.y);
    if (isOpaque && plotX == lastX && plotY == lastY) {
        return;
    }
    painter.drawPoint(rounded(p.x * scale), rounded(p.y * scale));
    if (isOpaque) {
        lastX = plotX;
        lastY = plotY;
    }
}

void HandPainter::polyline(const HT_Double_Point* points, int count) {
    Buffer snapped;
    snap(points, count, scale, snapped);
    painter.drawPolyline(snapped.constData(), snapped.size());
}

void HandPainter::polygon(const HT_Double_Point* points, int count) {
    Buffer snapped;
    snap(points, count, scale, snapped);
    QPainterPath path;
    path.reserve(snapped.size());
    path.moveTo(snapped[0]);
    for (int i = 1; i < snapped.size(); ++i) {
        path.lineTo(snapped[i]);
    }
    painter.fillPath(path, painter.brush());
}

void HandPainter::arc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation, double start,
                      double end) {
    const double x = center.x * scale;
    const double y = center.y * scale;
    // Single precision, as in a GDI world transform: the same picture needs the same matrix.
    const auto single = [](double value) {
        return static_cast<double>(static_cast<float>(value));
    };
    const double c = std::cos(rotation);
    const double s = std::sin(-rotation);
    const int halfWidth = rounded(radiusX * scale);
    const int halfHeight = rounded(radiusY * scale);
    painter.save();
    painter.setWorldTransform(
        QTransform(single(c), single(s), single(-s), single(c), single(x - x * c + y * s), single(y - y * c - x * s)));
    const double sixteenthsPerRadian = 16.0 * 180.0 / 3.141592653589793;
    painter.drawArc(QRectF(rounded(x) - halfWidth, rounded(y) - halfHeight, 2 * halfWidth, 2 * halfHeight),
                    static_cast<int>(start * sixteenthsPerRadian),
                    static_cast<int>((end - start) * sixteenthsPerRadian));
    painter.restore();
}

QPolygonF HandPainter::snapped(const Outline& contour) const {
    QPolygonF polygon;
    for (const HT_Double_Point& point : contour) {
        polygon.append(QPointF(rounded(point.x * scale), rounded(point.y * scale)));
    }
    return polygon;
}

void HandPainter::clipUnited(const std::vector<Outline>& contours) {
    QPainterPath clip;
    for (const Outline& contour : contours) {
        QPainterPath path;
        path.addPolygon(snapped(contour));
        clip = clip.isEmpty() ? path : clip.united(path);
    }
    painter.setClipPath(clip);
}

void HandPainter::clipWinding(const std::vector<Outline>& contours) {
    QPainterPath clip;
    clip.setFillRule(Qt::WindingFill);
    for (const Outline& contour : contours) {
        clip.addPolygon(snapped(contour));
        clip.closeSubpath();
    }
    painter.setClipPath(clip);
}

void HandPainter::ink(const QColor& colour) {
    color = colour;
    lastX = INT32_MAX;
    lastY = INT32_MAX;
    installPen();
    painter.setBrush(QBrush(color, Qt::SolidPattern));
}

void HandPainter::width(int units) {
    penWidth = units;
    installPen();
}

void HandPainter::installPen() {
    QPen pen;
    pen.setStyle(Qt::SolidLine);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    pen.setWidth(penWidth);
    pen.setColor(color);
    painter.setPen(pen);
}
