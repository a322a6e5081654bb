// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <map>

#include "device/hpgl/HpglWriter.h"
#include "device/hpgl/PlotterClip.h"
#include "device/vector/VectorSink.h"

namespace kelplot {

/// Draws a page with the pens of a plotter: opaque, in plain colours.
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
    void fillOutlines(const std::vector<QPolygonF>& polygons, bool evenOdd, QRgb colour);
    void drawLine(const std::vector<QPointF>& points, const HpglWriter::Pen& pen);
    QRgb inkOf(const QColor& colour, const PageBlend& blend);
    QRgb inkOf(const PageBrush& brush, const PageBlend& blend);
    QPoint onPlotter(const QPointF& point) const;

    HpglWriter& m_writer;
    QSize m_page;
    PlotterClip m_clip;
    std::map<QString, size_t> m_shortcomings;
};

} // namespace kelplot
