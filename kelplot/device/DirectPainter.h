// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QString>
#include <functional>

#include "device/DirectDevice.h"
#include "geometry/Affine2.h"
#include "geometry/Vec.h"

class QPainter;
class QPainterPath;

namespace kelplot {

/// Draws on a device past the renderer, with the painter that the renderer draws with: texts that are to stay texts,
/// gradients, and the transform for pictures that are turned. The renderer knows none of these.
class DirectPainter {
public:
    /// @param painter  borrowed; has no world transform except during the calls below
    /// @param device   what the painter draws on, borrowed; null: it can do no more than the painter
    explicit DirectPainter(QPainter& painter, DirectDevice* device = nullptr) : m_painter(painter), m_device(device) {}

    /// Tells the device the name of the layer to which what is drawn from here on belongs.
    void tellLayer(const QString& name) const {
        if (m_device != nullptr) {
            m_device->layerChanged(name);
        }
    }

    /// Draws a text as characters of its font, not as outlines.
    ///
    /// @param place  from the font's units, y downwards and the origin at the start of the base line, to device units
    void drawText(const QString& text, const QFont& font, const Affine2& place, const QColor& ink);

    /// Fills an area with a brush, such as a gradient, without a border.
    void fill(const QPainterPath& area, const QBrush& brush, double opacity);

    /// Calls `draw` while the painter maps coordinates to device units by `place`.
    void drawPlaced(const Affine2& place, const std::function<void()>& draw);

    /// The length of a vector of device units, in dots of the device.
    double dotsAlong(Vec2 vector) const;
    /// Sets whether pixels are averaged where a picture has more of them than the device has dots; else some are
    /// skipped.
    void mixPixels(bool mix);

private:
    QPainter& m_painter;
    DirectDevice* m_device;
};

} // namespace kelplot
