// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <functional>

#include "geometry/Affine2.h"
#include "geometry/Vec.h"

class QPainter;

namespace kelplot {

/// Draws with the renderer's own painter what the renderer cannot draw: texts that stay texts, and pictures that are
/// turned.
class DirectPainter {
public:
    /// @param painter  borrowed; has no world transform except during the calls below
    explicit DirectPainter(QPainter& painter) : m_painter(painter) {}

    /// Draws a text as characters of its font, not as outlines.
    ///
    /// @param place  from the font's units, y downwards and the origin at the start of the base line, to device units
    void drawText(const QString& text, const QFont& font, const Affine2& place, const QColor& ink);

    /// Calls `draw` while the painter maps coordinates to device units by `place`.
    void drawPlaced(const Affine2& place, const std::function<void()>& draw);

    /// The length of a vector of device units, in dots of the device.
    double dotsAlong(Vec2 vector) const;
    /// Sets whether pixels are averaged where a picture has more of them than the device has dots; else some are
    /// skipped.
    void mixPixels(bool mix);
    /// Tells whether the device ignores the clip, as Qt's SVG generator does.
    bool passesClipsOver() const;

private:
    QPainter& m_painter;
};

} // namespace kelplot
