// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/Icons.h"

#include <QPainter>
#include <QPainterPath>

namespace kelplot {
namespace {

// All are drawn on a square of 24 units.

void drawPrinter(QPainter& painter) {
    painter.drawPolyline(QPolygonF({{7, 8}, {7, 3}, {17, 3}, {17, 8}}));
    painter.drawRoundedRect(QRectF(3, 8, 18, 9), 1.5, 1.5);
    painter.fillRect(QRectF(7, 13, 10, 8), QColor(255, 255, 255));
    painter.drawRect(QRectF(7, 13, 10, 8));
    painter.drawLine(QPointF(9, 17), QPointF(15, 17));
}

void drawDisk(QPainter& painter) {
    painter.drawPolygon(QPolygonF({{4, 4}, {17, 4}, {20, 7}, {20, 20}, {4, 20}}));
    painter.drawRect(QRectF(8, 4, 7, 5));
    painter.drawRect(QRectF(7, 13, 10, 7));
}

void drawLens(QPainter& painter) {
    painter.drawEllipse(QPointF(10.5, 10.5), 6.5, 6.5);
    painter.drawLine(QPointF(15.2, 15.2), QPointF(21, 21));
    painter.drawLine(QPointF(7.5, 10.5), QPointF(13.5, 10.5));
}

void drawPlusLens(QPainter& painter) {
    drawLens(painter);
    painter.drawLine(QPointF(10.5, 7.5), QPointF(10.5, 13.5));
}

void drawFit(QPainter& painter) {
    painter.drawRect(QRectF(8, 6, 8, 12));
    for (const int x : {3, 21}) {
        for (const int y : {3, 21}) {
            const double inX = x < 12 ? x + 4.0 : x - 4.0;
            const double inY = y < 12 ? y + 4.0 : y - 4.0;
            painter.drawPolyline(QPolygonF({QPointF(x, inY), QPointF(x, y), QPointF(inX, y)}));
        }
    }
}

void drawOneToOne(QPainter& painter) {
    painter.drawPolyline(QPolygonF({{4, 8.5}, {6.5, 6}, {6.5, 18}}));
    painter.drawPolyline(QPolygonF({{15.5, 8.5}, {18, 6}, {18, 18}}));
    painter.drawPoint(QPointF(11.5, 10));
    painter.drawPoint(QPointF(11.5, 15));
}

void drawLayers(QPainter& painter) {
    painter.drawPolygon(QPolygonF({{12, 3}, {21, 8}, {12, 13}, {3, 8}}));
    painter.drawPolyline(QPolygonF({{3, 12}, {12, 17}, {21, 12}}));
    painter.drawPolyline(QPolygonF({{3, 16}, {12, 21}, {21, 16}}));
}

void drawSliders(QPainter& painter) {
    constexpr double knobs[][2] = {{8, 6}, {16, 12}, {10, 18}};
    for (const auto& knob : knobs) {
        painter.drawLine(QPointF(3, knob[1]), QPointF(21, knob[1]));
        painter.setBrush(painter.pen().color());
        painter.drawEllipse(QPointF(knob[0], knob[1]), 2.2, 2.2);
    }
}

using Draw = void (*)(QPainter&);
constexpr Draw drawers[] = {drawPrinter, drawDisk,     drawPlusLens, drawLens,
                            drawFit,     drawOneToOne, drawLayers,   drawSliders};

} // namespace

QIcon iconFor(IconKind kind, const QColor& colour) {
    constexpr double units = 24.0;
    QIcon icon;
    for (const int side : {24, 48}) {
        QPixmap pixels(side, side);
        pixels.fill(Qt::transparent);
        QPainter painter(&pixels);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(side / units, side / units);
        painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        drawers[static_cast<size_t>(kind)](painter);
        painter.end();
        icon.addPixmap(pixels);
    }
    return icon;
}

} // namespace kelplot
