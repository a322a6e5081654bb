// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <QTransform>
#include <QVector>

class QPainter;

namespace kelplot {

/// Draws lines by filling their outlines, so that their cost grows with their length.
///
/// The rasterizer keeps the pixels that an outline touches in a list for each row and looks every one of them up from
/// the list's beginning. A smoothed line that lies nearly flat touches thousands of pixels in a row, so its cost would
/// grow with the square of its length. Here the outline is cut into columns instead. They are cut between two pixels,
/// so that no pixel belongs to two of them and lines that let the ground show through do not get darker there.
class OutlineStroke {
public:
    /// @param toPixels  from the coordinates of the lines to pixels
    OutlineStroke(QPen pen, const QTransform& toPixels);

    /// Tells whether the pen draws such lines at all: others are drawn by other means.
    bool applies() const { return m_applies; }
    /// Tells whether lines of this extent, in pixels, are worth it: long ones, and those of a round pen, whose outlines
    /// are quick to make.
    bool isWorthIt(const QRectF& box) const;
    /// How far the pen reaches from its line, at most, in pixels.
    double reach() const { return m_reach; }

    /// Draws a polyline.
    ///
    /// @param shown  the part that shows, in whole pixels
    /// @param painter  its world transform is to be the identity; its pen and brush are not used
    void drawLine(const QPointF* points, int count, const QRect& shown, QPainter& painter) const;
    /// Draws the lines of a path in the same way.
    void drawPath(const QPainterPath& lines, const QRect& shown, QPainter& painter) const;

private:
    QVector<QPolygonF> outlineOf(const QPainterPath& lines) const;
    void fillOutline(const QVector<QPolygonF>& outline, const QRect& shown, QPainter& painter) const;

    QPen m_pen;
    QTransform m_toPixels;
    double m_width; ///< in pixels
    bool m_applies; ///< see `applies`
    bool m_isRound; ///< at ends and joins, and in every direction
    double m_reach; ///< see `reach`
};

} // namespace kelplot
