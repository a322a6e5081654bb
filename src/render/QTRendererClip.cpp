// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/QTRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <QPainter>
#include <QPainterPath>
#include <QRect>

#include "keldriver/ClipRgn.h"
#include "region/RgnList.h"
#include "render/DevicePoints.h"

using namespace KelDriver::Internal;

namespace {

// One pixel before the rounded coordinate. A coordinate at the low end of the range wraps to the high end: part of
// the interface.
int32_t pixelBefore(double coordinate) {
    const int32_t pixel = roundToInt32(coordinate);
    return pixel == INT32_MIN ? INT32_MAX : pixel - 1;
}

struct Pixels {
    int32_t first;
    int32_t last;
};

// The pixels of a stretch of device units: they start one before its rounded start and number its length, rounded up,
// and two more. They end where the range ends. Qt takes a rectangle for empty when its width does not fit an `int`, so
// a longer stretch is shortened at its start, as far as the page's corner, and then at its end.
Pixels widened(double low, double high, double scale) {
    constexpr int64_t longest = INT32_MAX;
    const int32_t before = pixelBefore(low * scale);
    const int32_t last = truncateToInt32(before + std::ceil((high - low) * scale) + 1.0);
    const int64_t first = std::max<int64_t>(before, std::min<int64_t>(last - longest + 1, -1));
    return {static_cast<int32_t>(first), static_cast<int32_t>(std::min<int64_t>(last, first + longest - 1))};
}

// Wider than the rectangle on every side: part of the interface.
QRect clipRectangle(const HT_Double_Rectangle& box, double scale) {
    const Pixels columns = widened(box.minX, box.maxX, scale);
    const Pixels rows = widened(box.minY, box.maxY, scale);
    QRect rect;
    rect.setCoords(columns.first, rows.first, columns.last, rows.last);
    return rect;
}

// Adds a vertex as `QPainterPath::addPolygon` does, which keeps repeated ones; a line leaves them out.
void addVertex(QPainterPath& path, const QPointF& vertex) {
    const int index = path.elementCount();
    path.lineTo(vertex);
    if (path.elementCount() == index) {
        path.lineTo(vertex + QPointF(1, 0));
        path.setElementPositionAt(index, vertex.x(), vertex.y());
    }
}

// Goes from the vertices straight into the path, so that even a long contour needs no buffer of its own.
QPainterPath contourPath(const HT_ClipRgn& contour, double scale) {
    QPainterPath path;
    const int count = vertexCount(contour);
    path.reserve(count);
    for (int i = 0; i < count; ++i) {
        const QPointF vertex = snapToDevice(contour.points[i], scale);
        if (i == 0) {
            path.moveTo(vertex);
        } else {
            addVertex(path, vertex);
        }
    }
    return path;
}

QPainterPath combined(const QPainterPath& clip, const QPainterPath& contour, int32_t mode) {
    switch (mode) {
    case HT_RGN_COPY:
        return contour;
    case HT_RGN_DIFF:
        return clip.subtracted(contour);
    case HT_RGN_OR:
        return clip.united(contour);
    case HT_RGN_XOR:
        return clip.united(contour).subtracted(clip.intersected(contour));
    default: // HT_RGN_AND, and what is unknown
        return clip.intersected(contour);
    }
}

// A first contour of fewer than two vertices is all there is to the clip, whatever follows it: part of the interface.
QPainterPath clipPath(const HT_ClipRgn& region, double scale) {
    QPainterPath clip = contourPath(region, scale);
    if (clip.isEmpty()) {
        return clip;
    }
    for (const HT_ClipRgn* node = region.next; node != nullptr; node = node->next) {
        const QPainterPath contour = contourPath(*node, scale);
        if (!contour.isEmpty()) {
            clip = combined(clip, contour, node->mode);
        }
    }
    return clip;
}

} // namespace

void QTRenderer::SetClipRgn(const HT_ClipRgn* region) {
    if (painter == nullptr) {
        return;
    }
    painter->setClipPath(QPainterPath(), Qt::ReplaceClip);
    if (region == nullptr) {
        return;
    }
    HT_Double_Rectangle box;
    if (KelDriver::HT_GetRgnMinRect(region, &box)) {
        painter->setClipRect(clipRectangle(box, scale), Qt::ReplaceClip);
        return;
    }
    painter->setClipPath(clipPath(*region, scale), Qt::ReplaceClip);
}
