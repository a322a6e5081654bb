// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QTransform>

namespace kelplot {

/// A text that is to stay one on a device.
struct DeviceText {
    const QString& text;
    const QFont& font;
    const QTransform& place; ///< from the font's units, y downwards and the origin at the start of the base line
    QColor ink;
};

/// What a device does by its own means where a painter would do less.
class DirectDevice {
public:
    virtual ~DirectDevice() = default;
    DirectDevice(const DirectDevice&) = delete;
    DirectDevice& operator=(const DirectDevice&) = delete;

    /// Is to be called whenever what is drawn next belongs to another layer of the drawing than what was drawn last.
    virtual void layerChanged(const QString& name) { static_cast<void>(name); }

    /// Draws a text as characters of its font, where the painter would make other texts of it.
    ///
    /// @return false: this device leaves it to the painter
    virtual bool drawText(const DeviceText& text) {
        static_cast<void>(text);
        return false;
    }

protected:
    DirectDevice() = default;
};

} // namespace kelplot
