// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/QTRenderer.h"

#include <algorithm>
#include <cstdint>

#include <QPainter>
#include <QTransform>

#include "geometry/Numeric.h"
#include "keldriver/EllipArc.h"
#include "render/DevicePoints.h"

using namespace KelDriver::Internal;

namespace {

constexpr double sixteenths = 16.0; // Qt counts arc angles in sixteenths of a degree

QRectF rectangleFor(const tagRECT& rect) {
    // Widths are taken as doubles: the sides of a huge arc lie further apart than an int can tell.
    return {static_cast<double>(rect.left), static_cast<double>(rect.top), static_cast<double>(rect.right) - rect.left,
            static_cast<double>(rect.bottom) - rect.top};
}

QTransform transformFor(const tagXFORM& xform) {
    return {static_cast<double>(xform.eM11), static_cast<double>(xform.eM12), static_cast<double>(xform.eM21),
            static_cast<double>(xform.eM22), static_cast<double>(xform.eDx),  static_cast<double>(xform.eDy)};
}

// A line one device pixel long, so that a single pixel shows with the pen's width and caps.
void drawPixelLine(QPainter& painter, QPoint pixel) {
    const int next = pixel.x() < INT32_MAX ? pixel.x() + 1 : INT32_MAX;
    painter.drawLine(pixel.x(), pixel.y(), next, pixel.y());
}

} // namespace

void QTRenderer::DrawPoint(const HT_Double_Point& point) {
    if (painter == nullptr) {
        return;
    }
    const bool isOpaque = color.alpha() == 255;
    const int32_t plotX = roundToInt32(point.x);
    const int32_t plotY = roundToInt32(point.y);
    if (isOpaque && plotX == lastPointX && plotY == lastPointY) {
        return;
    }
    painter->drawPoint(snapToDevice(point, scale));
    if (isOpaque) {
        lastPointX = plotX;
        lastPointY = plotY;
    }
}

void QTRenderer::DrawPolyline(const HT_Double_Point* points, int count) {
    if (painter == nullptr || points == nullptr) {
        return;
    }
    KelDriver::Internal::PolylinePoints kept(count);
    kept.snapDistinct(points, std::max(count, 1), scale); // the first point is drawn whatever the count
    if (kept.size() > 1) {
        painter->drawPolyline(kept.data(), kept.size());
    } else {
        drawPixelLine(*painter, snapToDevice(points[0], scale));
    }
}

void QTRenderer::DrawBezier(const HT_Double_Point* points, int count) {
    if (painter == nullptr || points == nullptr || count < 2) {
        return;
    }
    KelDriver::Internal::CurvePoints snapped(count);
    snapped.snapAll(points, count, scale);
    painter->drawPolyline(snapped.data(), snapped.size());
}

void QTRenderer::DrawEllipse(const HT_Double_Point& center, double radiusX, double radiusY, double rotation) {
    if (painter != nullptr) {
        DrawArc(center, radiusX, radiusY, rotation, 0.0, fullTurn);
    }
}

void QTRenderer::DrawArc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation,
                         double startParam, double endParam) {
    if (painter == nullptr) {
        return;
    }
    if (minArcSize > radiusX && minArcSize > radiusY) {
        DrawPoint(center);
        return;
    }
    const HT_EllipArc arc({center.x * scale, center.y * scale}, radiusX * scale, radiusY * scale, rotation, startParam,
                          endParam);
    tagRECT rect;
    tagXFORM xform;
    // Qt takes the angles themselves, so the radial points of `calcGdiArcParam` are not needed.
    arc.calcGdiEllipseParam(rect, xform);
    const double startDegrees = arc.startParam * degreesPerRadian;
    const double spanDegrees = arc.endParam * degreesPerRadian - startDegrees;
    painter->save();
    painter->setWorldTransform(transformFor(xform));
    painter->drawArc(rectangleFor(rect), truncateToInt32(startDegrees * sixteenths),
                     truncateToInt32(spanDegrees * sixteenths));
    painter->restore();
}
