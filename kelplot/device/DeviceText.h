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

} // namespace kelplot
