// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/png/TileEngine.h"

#include <QPolygonF>
#include <cmath>

namespace kelplot {
namespace {

/// The extent of points in the device's coordinates.
QRectF boxOf(const QPointF* points, int count, const QTransform& map) {
    double left = HUGE_VAL, top = HUGE_VAL, right = -HUGE_VAL, bottom = -HUGE_VAL;
    for (int i = 0; i < count; ++i) {
        const QPointF point = map.map(points[i]);
        left = std::min(left, point.x());
        right = std::max(right, point.x());
        top = std::min(top, point.y());
        bottom = std::max(bottom, point.y());
    }
    return {QPointF(left, top), QPointF(right, bottom)};
}

/// A pen for lines that meet at the edges of tiles. Lines up to a pixel wide are drawn by a shortcut that begins anew
/// where the tile begins, which moves them by up to half a pixel.
QPen joiningPen(QPen pen, const QTransform& toPixels) {
    constexpr double justWider = 1.001; // pixels
    const double scale = std::sqrt(std::abs(toPixels.determinant()));
    if (pen.style() == Qt::SolidLine && !pen.isCosmetic() && scale > 0.0) {
        pen.setWidthF(std::max(pen.widthF(), justWider / scale));
    }
    return pen;
}

} // namespace

TileEngine::TileEngine() : QPaintEngine(AllFeatures), m_stroke(QPen(), QTransform()) {
}

void TileEngine::setTile(QImage& pixels, const QRect& place, bool isPart) {
    m_pixels = &pixels;
    m_place = place;
    m_isPart = isPart;
}

bool TileEngine::begin(QPaintDevice* /*device*/) {
    m_isInPixels = false;
    return m_pixels != nullptr && m_painter.begin(m_pixels);
}

void TileEngine::updateState(const QPaintEngineState& now) {
    const DirtyFlags changes = now.state();
    if (changes & DirtyTransform) {
        m_toTile = now.transform() * QTransform::fromTranslate(-m_place.x(), -m_place.y());
        m_painter.setTransform(m_toTile);
        m_isInPixels = false;
    }
    if (changes & (DirtyPen | DirtyTransform)) {
        const QPen pen = m_isPart ? joiningPen(now.pen(), m_toTile) : now.pen();
        m_painter.setPen(pen);
        m_stroke = OutlineStroke(pen, m_toTile);
    }
    if (changes & DirtyBrush) {
        m_painter.setBrush(now.brush());
    }
    if (changes & DirtyBrushOrigin) {
        m_painter.setBrushOrigin(now.brushOrigin());
    }
    if (changes & DirtyBackground) {
        m_painter.setBackground(now.backgroundBrush());
    }
    if (changes & DirtyBackgroundMode) {
        m_painter.setBackgroundMode(now.backgroundMode());
    }
    if (changes & DirtyCompositionMode) {
        m_painter.setCompositionMode(now.compositionMode());
    }
    if (changes & DirtyOpacity) {
        m_painter.setOpacity(now.opacity());
    }
    if (changes & DirtyHints) {
        m_painter.setRenderHints(m_painter.renderHints(), false);
        m_painter.setRenderHints(now.renderHints());
        m_painter.setRenderHint(QPainter::Antialiasing, m_smooth && (now.renderHints() & QPainter::Antialiasing));
    }
    updateClip(now);
}

void TileEngine::updateClip(const QPaintEngineState& now) {
    const DirtyFlags changes = now.state();
    if (changes & DirtyClipPath) {
        inUnits().setClipPath(now.clipPath(), now.clipOperation());
    }
    if (changes & DirtyClipRegion) {
        inUnits().setClipRegion(now.clipRegion(), now.clipOperation());
    }
    if (changes & DirtyClipEnabled) {
        m_painter.setClipping(now.isClipEnabled());
    }
}

/// Tells whether shapes with this extent in the tile's pixels reach it, with the lines around them.
bool TileEngine::touchesTile(const QRectF& box) const {
    const double reach = m_stroke.reach();
    return box.right() + reach >= 0.0 && box.bottom() + reach >= 0.0 && box.left() - reach <= m_place.width() &&
           box.top() - reach <= m_place.height();
}

bool TileEngine::drawsOutline(const QRectF& box) const {
    return m_stroke.applies() && m_stroke.isWorthIt(box) && m_painter.testRenderHint(QPainter::Antialiasing);
}

QRect TileEngine::tilePixels() const {
    return {QPoint(0, 0), m_place.size()};
}

/// The painter in the coordinates in force. Its transform is changed where it has to be only, since that costs it more
/// than a short line.
QPainter& TileEngine::inUnits() {
    if (m_isInPixels) {
        m_painter.setTransform(m_toTile);
        m_isInPixels = false;
    }
    return m_painter;
}

QPainter& TileEngine::inPixels() {
    if (!m_isInPixels) {
        m_painter.resetTransform();
        m_isInPixels = true;
    }
    return m_painter;
}

void TileEngine::drawRects(const QRectF* rects, int count) {
    inUnits().drawRects(rects, count);
}

void TileEngine::drawLines(const QLineF* lines, int count) {
    for (int i = 0; i < count; ++i) {
        const QPointF ends[] = {lines[i].p1(), lines[i].p2()};
        const QRectF box = boxOf(ends, 2, m_toTile);
        if (touchesTile(box) && drawsOutline(box)) {
            m_stroke.drawLine(ends, 2, tilePixels(), inPixels());
        } else if (touchesTile(box)) {
            inUnits().drawLine(lines[i]);
        }
    }
}

void TileEngine::drawEllipse(const QRectF& rect) {
    QPainterPath ellipse;
    ellipse.addEllipse(rect);
    if (m_painter.brush() == Qt::NoBrush) {
        drawPath(ellipse);
    } else {
        inUnits().drawEllipse(rect);
    }
}

void TileEngine::drawPath(const QPainterPath& path) {
    const QRectF box = m_toTile.mapRect(path.controlPointRect());
    if (!touchesTile(box)) {
        return;
    }
    if (!drawsOutline(box)) {
        inUnits().drawPath(path);
        return;
    }
    if (m_painter.brush() != Qt::NoBrush) {
        inUnits().fillPath(path, m_painter.brush());
    }
    m_stroke.drawPath(path, tilePixels(), inPixels());
}

void TileEngine::drawPoints(const QPointF* points, int count) {
    inUnits().drawPoints(points, count);
}

void TileEngine::drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) {
    const QRectF box = boxOf(points, count, m_toTile);
    if (!touchesTile(box)) {
        return;
    }
    switch (mode) {
    case PolylineMode:
        if (drawsOutline(box)) {
            m_stroke.drawLine(points, count, tilePixels(), inPixels());
        } else {
            inUnits().drawPolyline(points, count);
        }
        break;
    case ConvexMode:
        inUnits().drawConvexPolygon(points, count);
        break;
    case OddEvenMode:
    case WindingMode:
        inUnits().drawPolygon(points, count, mode == OddEvenMode ? Qt::OddEvenFill : Qt::WindingFill);
        break;
    }
}

void TileEngine::drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& source) {
    inUnits().drawPixmap(target, pixmap, source);
}

void TileEngine::drawImage(const QRectF& target, const QImage& image, const QRectF& source,
                           Qt::ImageConversionFlags flags) {
    if (touchesTile(m_toTile.mapRect(target.normalized()))) {
        inUnits().drawImage(target, image, source, flags);
    }
}

void TileEngine::drawTiledPixmap(const QRectF& target, const QPixmap& pixmap, const QPointF& offset) {
    inUnits().drawTiledPixmap(target, pixmap, offset);
}

} // namespace kelplot
