// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/QTRenderer.h"

#include <QPainter>

#include "render/DevicePoints.h"

using namespace KelDriver::Internal;

namespace {

void addOpenPolygon(QPainterPath& path, const KelDriver::Internal::PolylinePoints& points) {
    path.moveTo(points.data()[0]);
    for (int i = 1; i < points.size(); ++i) {
        path.lineTo(points.data()[i]);
    }
}

void addClosedPolygon(QPainterPath& path, const KelDriver::Internal::PolylinePoints& points) {
    addOpenPolygon(path, points);
    const QPointF first = points.data()[0];
    if (path.currentPosition() != first) {
        path.lineTo(first);
    }
}

} // namespace

void QTRenderer::FillPolygon(const HT_Double_Point* points, int count) {
    if (painter == nullptr || points == nullptr || count <= 0) {
        return;
    }
    KelDriver::Internal::PolylinePoints kept(count);
    kept.snapDistinct(points, count, scale);
    if (kept.size() == 1) {
        DrawPoint(points[0]);
        return;
    }
    if (kept.size() == 2) {
        painter->drawPolyline(kept.data(), kept.size());
        return;
    }
    if (windingPending) {
        addClosedPolygon(windingPath, kept);
        return;
    }
    QPainterPath path;
    path.reserve(kept.size());
    addOpenPolygon(path, kept);
    painter->fillPath(path, painter->brush());
}

void QTRenderer::SetFillMode(HT_PlotStyle::FillMode mode) {
    if (painter == nullptr) {
        return;
    }
    const bool isWinding = mode == HT_PlotStyle::FillModeWinding;
    if (!isWinding && mode != HT_PlotStyle::FillModeAlternate) {
        return;
    }
    const Qt::FillRule rule = isWinding ? Qt::WindingFill : Qt::OddEvenFill;
    if (!windingPath.isEmpty() && windingPath.fillRule() == rule) {
        return;
    }
    if (isWinding) {
        windingPath.setFillRule(Qt::WindingFill);
        windingPending = true;
        return;
    }
    if (windingPending && !windingPath.isEmpty()) {
        painter->drawPath(windingPath);
        painter->fillPath(windingPath, painter->brush());
    }
    windingPending = false;
    windingPath = QPainterPath(); // even-odd, as every new path
}
