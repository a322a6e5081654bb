// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPainterPath>
#include <map>
#include <optional>

#include "device/hpgl/HpglWriter.h"
#include "device/vector/VectorSink.h"

namespace kelplot {

/// Draws a page with the pens of a plotter: opaque, in plain colours. Clips are applied here, since a plotter has only
/// upright rectangles.
class HpglSink final : public VectorSink {
public:
    /// @param writer  borrowed; outlives this
    HpglSink(HpglWriter& writer, QSize page) : m_writer(writer), m_page(page) {}

    void setPage(QSize page) { m_page = page; }

    QPaintEngine::PaintEngineFeatures features() const override;
    void setClips(const std::vector<PageShape>& clips) override;
    void fill(const PageShape& shape, const PageBrush& brush, const PageBlend& blend) override;
    void stroke(const PageShape& shape, const QPen& pen, const PageBlend& blend) override;
    void drawImage(const PagePicture& picture, const PageBlend& blend) override;

    /// What could not be drawn, or not as it was meant, with counts.
    const std::map<QString, size_t>& shortcomings() const { return m_shortcomings; }

private:
    enum class Visibility { none, part, whole };

    Visibility visibilityOf(const QRectF& box) const;
    void fillPath(const QPainterPath& path, QRgb colour);
    QRgb inkOf(QColor colour, const PageBlend& blend);
    QRgb inkOf(const PageBrush& brush, const PageBlend& blend);
    QPoint onPlotter(const QPointF& point) const;

    HpglWriter& m_writer;
    QSize m_page;
    std::optional<QPainterPath> m_clip;
    QRectF m_clipInside; ///< the rectangle that the clip is; empty if it is none
    std::map<QString, size_t> m_shortcomings;
};

} // namespace kelplot
