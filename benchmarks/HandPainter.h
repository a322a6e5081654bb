// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <vector>

#include <QColor>
#include <QPainter>
#include <QPolygonF>

#include "RegionShapes.h"
#include "keldriver/Types.h"

/// The same picture as the renderer draws, painted by hand: what a driver's author would write straight on a
/// `QPainter` for the same output: the same snapping, and no opaque point twice in a row.
class HandPainter {
public:
    HandPainter(QPainter& target, double unitScale) : painter(target), scale(unitScale) {}

    void point(const HT_Double_Point& p);
    void polyline(const HT_Double_Point* points, int count);
    void polygon(const HT_Double_Point* points, int count);
    void arc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation, double start, double end);
    /// Clips to the union of contours, by Qt's operations on paths.
    void clipUnited(const std::vector<Outline>& contours);
    /// Clips to the same area by one path of all contours, which must go round the same way; it is not evaluated.
    void clipWinding(const std::vector<Outline>& contours);
    void ink(const QColor& colour);
    void width(int units);

private:
    void installPen();
    QPolygonF snapped(const Outline& contour) const;

    QPainter& painter;
    double scale;
    QColor color = Qt::black;
    int penWidth = 1;
    int lastX = INT32_MAX; // the last opaque point, in whole plot units
    int lastY = INT32_MAX;
};
