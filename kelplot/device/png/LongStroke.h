// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPainterPath>
#include <QPen>
#include <QTransform>
#include <utility>

class QPainter;

namespace kelplot {

/// Draws lines so that their cost grows with their length.
///
/// The rasterizer keeps the pixels that an outline touches in a list for each row and looks every one of them up from
/// the list's beginning. A smoothed line that lies nearly flat touches thousands of pixels in a row, so its cost would
/// grow with the square of its length. Here the outline is cut into columns instead. They are cut between two pixels,
/// so that no pixel belongs to two of them and lines that let the ground show through do not get darker there.
class LongStroke {
public:
    /// @param toPixels  from the coordinates of the lines to pixels
    LongStroke(QPen pen, QTransform toPixels) : m_pen(std::move(pen)), m_toPixels(std::move(toPixels)) {}

    /// Tells whether the pen draws such lines at all: others are drawn by other means.
    bool applies() const;
    /// How far the pen reaches from its line, at most, in pixels.
    double reach() const;
    /// Tells whether lines of this extent, in pixels, are worth cutting.
    static bool isLong(const QRectF& box);

    /// Draws the lines of a path.
    ///
    /// @param shown  the part that shows, in whole pixels
    /// @param painter  its world transform is to be the identity; its pen and brush are not used
    void draw(const QPainterPath& lines, const QRect& shown, QPainter& painter) const;

private:
    QPen m_pen;
    QTransform m_toPixels;
};

} // namespace kelplot
