// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPainterPath>
#include <vector>

namespace kelplot {

/// Subpaths in page units, y downwards; as in a `QPainterPath`, a subpath is closed where it ends at its start.
struct PageShape {
    using Element = QPainterPath::Element;

    std::vector<Element> elements; ///< finite, within `farthest` of the origin
    Qt::FillRule rule = Qt::WindingFill;

    /// No page is as large; coordinates beyond are moved to it.
    static constexpr double farthest = 1e9;

    void clear() { elements.clear(); }
    void moveTo(double x, double y) { add(x, y, QPainterPath::MoveToElement); }
    void lineTo(double x, double y) { add(x, y, QPainterPath::LineToElement); }
    void add(double x, double y, QPainterPath::ElementType type);

    /// Whether all coordinates were numbers. The engine draws no shape without that.
    bool isFinite() const;
    /// The upright rectangle that this is, if it is one.
    bool isRectangle(QRectF& rectangle) const;
    /// The index after the last element of the subpath that begins at `start`.
    size_t endOfSubpath(size_t start) const;
    /// Whether the subpath from `start` to before `end` comes back to its start after more than one segment.
    bool isClosed(size_t start, size_t end) const;

    bool operator==(const PageShape& other) const;
};

} // namespace kelplot
