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
#include "render/DeviceGrid.h"

namespace {

// One pixel before the rounded coordinate. A coordinate at the low end of the range wraps to the high end, so that
// the clip lies off the page; drivers count on nothing being drawn then.
int32_t pixelBefore(double coordinate) {
    const int32_t pixel = roundToInt32(coordinate);
    return pixel == INT32_MIN ? INT32_MAX : pixel - 1;
}

// The last pixel of a stretch of `length` device units, rounded up, and two pixels more, from `first` on.
int32_t lastPixel(int32_t first, double length) {
    const int64_t pixels = int64_t{truncateToInt32(std::ceil(length))} + 2;
    const int64_t saturated = std::min<int64_t>(pixels, INT32_MAX);
    return static_cast<int32_t>(std::clamp<int64_t>(first + saturated - 1, INT32_MIN, INT32_MAX));
}

// Wider than the rectangle on every side, so that lines along its edges show at full weight.
QRect clipRectangle(const HT_Double_Rectangle& box, double scale) {
    const int32_t left = pixelBefore(box.minX * scale);
    const int32_t top = pixelBefore(box.minY * scale);
    QRect rect;
    rect.setCoords(left, top, lastPixel(left, (box.maxX - box.minX) * scale),
                   lastPixel(top, (box.maxY - box.minY) * scale));
    return rect;
}

// Goes from the vertices straight into the path: no contour, however long, costs a buffer beside it.
QPainterPath contourPath(const HT_ClipRgn& contour, double scale) {
    QPainterPath path;
    path.reserve(vertexCount(contour));
    path.moveTo(snapToDevice(contour.points[0], scale));
    for (int i = 1; i < contour.pointCount; ++i) {
        path.lineTo(snapToDevice(contour.points[i], scale));
    }
    return path;
}

double onClipGrid(double coordinate) {
    constexpr double steps = 256.0; // of a device pixel: finer than any painter resolves
    return std::nearbyint(coordinate * steps) / steps;
}

// The crossings that a combination found, moved by next to nothing onto a fixed grid. Qt goes wrong on vertices
// that almost but not quite coincide, and crossings of crossings are such.
void settleCrossings(QPainterPath& clip) {
    for (int i = 0; i < clip.elementCount(); ++i) {
        const QPainterPath::Element vertex = clip.elementAt(i);
        clip.setElementPositionAt(i, onClipGrid(vertex.x), onClipGrid(vertex.y));
    }
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

QPainterPath clipPath(const HT_ClipRgn& region, double scale) {
    if (vertexCount(region) < 2) {
        return {}; // drivers clip everything away with such a contour, whatever follows it
    }
    QPainterPath clip = contourPath(region, scale);
    for (const HT_ClipRgn* node = region.next; node != nullptr; node = node->next) {
        if (vertexCount(*node) >= 2) {
            settleCrossings(clip);
            clip = combined(clip, contourPath(*node, scale), node->mode);
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
