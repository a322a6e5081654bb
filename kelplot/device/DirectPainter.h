// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QString>
#include <functional>

#include "geometry/Affine2.h"
#include "geometry/Vec.h"

class QPainter;
class QPainterPath;

namespace kelplot {

/// Draws on a device past the renderer, with the painter that the renderer draws with: texts that are to stay texts,
/// gradients, and the transform for pictures that are turned. The renderer knows none of these.
class DirectPainter {
public:
    /// @param painter  borrowed; has no world transform but for the calls below
    explicit DirectPainter(QPainter& painter) : m_painter(painter) {}

    /// Draws a text as one of its font.
    ///
    /// @param place  from the font's units, y downwards and the origin at the start of the base line, to device units
    void drawText(const QString& text, const QFont& font, const Affine2& place, const QColor& ink);

    /// Fills an area with a brush, such as a gradient, without a border.
    void fill(const QPainterPath& area, const QBrush& brush, double opacity);

    /// Has `draw` draw in coordinates that `place` takes to device units.
    void drawPlaced(const Affine2& place, const std::function<void()>& draw);

    /// How many dots the device has along a vector of device units.
    double dotsAlong(Vec2 vector) const;
    /// Whether pictures with more pixels than the device has dots are mixed; else a few of the pixels stand for all.
    void mixPixels(bool mix);
    /// Tells whether the device draws everything whole, whatever the clip. The generator of SVG does.
    bool passesClipsOver() const;

private:
    QPainter& m_painter;
};

} // namespace kelplot
