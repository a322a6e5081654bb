// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPainterPath>
#include <QPolygonF>
#include <optional>
#include <vector>

#include "device/vector/PageShape.h"

namespace kelplot {

QPainterPath pathOf(const PageShape& shape);

/// The outlines of an area, by the even-odd rule whatever its own is unless they have very many points.
QList<QPolygonF> evenOddOutlines(const PageShape& shape);

/// The clip of a page, parted into what a plotter does by itself, an upright window, and borders of other forms, along
/// which lines and areas are cut before they are sent.
class PlotterClip {
public:
    /// @param clips  only what lies in all of them shows
    explicit PlotterClip(const std::vector<PageShape>& clips = {});

    /// The window; nothing: the whole page.
    const std::optional<QRectF>& window() const { return m_window; }
    bool hasBorders() const { return !m_borders.empty(); }
    /// Whether something with this box may show.
    bool mayShow(const QRectF& box) const;

    /// The parts of a line that lie within the borders.
    std::vector<std::vector<QPointF>> partsInside(const std::vector<QPointF>& line) const;
    /// What lies within the borders of the area between outlines, by the even-odd rule.
    std::vector<QPolygonF> partInside(const QList<QPolygonF>& outlines) const;

private:
    using Border = QList<QPolygonF>; ///< closed, by the even-odd rule

    bool isInside(const QPointF& point) const;
    std::vector<double> crossings(const QPointF& from, const QPointF& to) const;

    std::optional<QRectF> m_window;
    std::vector<Border> m_borders;
};

} // namespace kelplot
