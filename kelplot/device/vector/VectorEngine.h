// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPaintEngine>
#include <optional>
#include <vector>

#include "device/vector/VectorSink.h"

namespace kelplot {

/// Turns what a painter does into shapes on a page, for a format that has no painter state: coordinates are mapped to
/// page units, pens and clips too.
class VectorEngine final : public QPaintEngine {
public:
    /// @param sink  borrowed; outlives this
    explicit VectorEngine(VectorSink& sink);

    bool begin(QPaintDevice* device) override;
    bool end() override;
    /// Goes on with the painter's state on a page on which the sink has no clip yet.
    void beginPage();
    Type type() const override { return QPaintEngine::User; }

    void updateState(const QPaintEngineState& change) override;
    void drawPath(const QPainterPath& path) override;
    using QPaintEngine::drawPolygon;
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
    using QPaintEngine::drawLines;
    void drawLines(const QLineF* lines, int count) override;
    using QPaintEngine::drawRects;
    void drawRects(const QRectF* rects, int count) override;
    using QPaintEngine::drawPoints;
    void drawPoints(const QPointF* points, int count) override;
    void drawImage(const QRectF& target, const QImage& image, const QRectF& source,
                   Qt::ImageConversionFlags flags) override;
    void drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& source) override;
    void drawTiledPixmap(const QRectF& target, const QPixmap& pixmap, const QPointF& offset) override;
    void drawTextItem(const QPointF& at, const QTextItem& item) override;

private:
    void updateClip(const QPaintEngineState& change);
    void updatePen();
    void combineClip(Qt::ClipOperation operation, const QPainterPath& path);
    bool prepare();
    void mapPath(const QPainterPath& path, PageShape& shape) const;
    void add(const QPointF& point, QPainterPath::ElementType type);
    void addRectangle(const QRectF& rectangle);
    void fillShape();
    void fillShape(const QBrush& brush);
    void strokeShape();
    void strokeOutline(const QPainterPath& line);
    bool penKeepsShape() const { return m_pagePen.has_value(); }
    QPainterPath lineOfShape() const;
    QTransform placeOf(const QBrush& brush) const;

    VectorSink& m_sink;
    QTransform m_transform;
    QPen m_pen;
    std::optional<QPen> m_pagePen; ///< nothing: the transform deforms the pen, or its brush is not a plain colour
    QBrush m_brush;
    QPointF m_brushOrigin;
    PageBlend m_blend;
    bool m_smooth = false;
    bool m_hasClip = false;
    std::vector<PageShape> m_clips;
    std::vector<PageShape> m_clipsSent; ///< those that the sink was told last
    bool m_clipChanged = false;
    PageShape m_shape; ///< what is being drawn; kept for its memory
};

} // namespace kelplot
