// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>
#include <QPaintEngine>
#include <QPainter>

#include "device/PagePaintDevice.h"
#include "device/png/OutlineStroke.h"

namespace kelplot {

/// Draws a tile of a page: passes on what touches the tile to a painter on its pixels.
class TileEngine final : public QPaintEngine {
public:
    TileEngine();

    /// What to draw on from the next `begin` on.
    ///
    /// @param pixels  borrowed
    /// @param place  of the tile on the page, in pixels
    /// @param isPart  the page has further tiles
    void setTile(QImage& pixels, const QRect& place, bool isPart);
    /// Draws edges along whole pixels, with nothing in between, or smooths them.
    void setSmooth(bool smooth) { m_smooth = smooth; }

    bool begin(QPaintDevice* device) override;
    bool end() override { return m_painter.end(); }
    void updateState(const QPaintEngineState& now) override;
    Type type() const override { return QPaintEngine::User; }

    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawLines;
    using QPaintEngine::drawPoints;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;
    void drawRects(const QRectF* rects, int count) override;
    void drawLines(const QLineF* lines, int count) override;
    void drawEllipse(const QRectF& rect) override;
    void drawPath(const QPainterPath& path) override;
    void drawPoints(const QPointF* points, int count) override;
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
    void drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& source) override;
    void drawImage(const QRectF& target, const QImage& image, const QRectF& source,
                   Qt::ImageConversionFlags flags) override;
    void drawTiledPixmap(const QRectF& target, const QPixmap& pixmap, const QPointF& offset) override;

private:
    void updateClip(const QPaintEngineState& now);
    bool touchesTile(const QRectF& box) const;
    bool drawsOutline(const QRectF& box) const;
    QRect tilePixels() const;
    QPainter& inUnits();
    QPainter& inPixels();

    QImage* m_pixels = nullptr;
    QRect m_place;
    bool m_isPart = false;
    bool m_smooth = true;
    QTransform m_toTile;    ///< from the coordinates in force to the tile's pixels
    OutlineStroke m_stroke; ///< with the pen in force
    QPainter m_painter;
    bool m_isInPixels = false; ///< the painter is, rather than in the coordinates in force
};

/// What the page's painter draws on: it has the page's size, whatever part of it is being drawn.
class TileDevice final : public PagePaintDevice {
public:
    TileDevice(QSize page, double dotsPerInch) : PagePaintDevice(page, dotsPerInch) {}

    TileEngine& engine() { return m_engine; }
    QPaintEngine* paintEngine() const override { return &m_engine; }

private:
    mutable TileEngine m_engine; ///< the base class asks for it without saying what for
};

} // namespace kelplot
