// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPainter>
#include <QRect>

#include "geometry/Box2.h"
#include "page/DeviceGrid.h"

namespace kelplot {

/// Plot units per pixel. The renderer draws in whole units; with these, edges fall between pixels and are smoothed.
constexpr int unitsPerPixel = 16;

/// The grid of a page of pixels.
inline DeviceGrid pixelGrid(double pixelsPerMillimetre) {
    // Qt draws lines up to a pixel wide by a shortcut that counts dashes in pixels along the steeper axis, which makes
    // them too long on slopes and curves.
    constexpr double thinnestDashed = unitsPerPixel + 1;
    return {pixelsPerMillimetre * unitsPerPixel, unitsPerPixel, unitsPerPixel / 10.0, thinnestDashed};
}

/// Has a painter on a page of this size take units and draw smoothly.
inline void preparePixelPainter(QPainter& painter, const QSize& page) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setWindow(0, 0, page.width() * unitsPerPixel, page.height() * unitsPerPixel);
    painter.setViewport(0, 0, page.width(), page.height());
}

/// A part of a page of pixels, in units.
inline Box2 unitsOf(const QRect& part) {
    const Vec2 corner{static_cast<double>(part.left()), static_cast<double>(part.top())};
    const Vec2 size{static_cast<double>(part.width()), static_cast<double>(part.height())};
    return {corner * unitsPerPixel, (corner + size) * unitsPerPixel};
}

} // namespace kelplot
