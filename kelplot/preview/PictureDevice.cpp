// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/PictureDevice.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "device/png/PixelGrid.h"

namespace kelplot {
namespace {

constexpr double millimetresPerInch = 25.4;

QSize pixelsOf(const SheetSize& sheet, double pixelsPerMillimetre) {
    const auto pixels = [&](double millimetres) {
        return static_cast<int>(std::max(1.0, std::round(millimetres * pixelsPerMillimetre)));
    };
    return {pixels(sheet.width), pixels(sheet.height)};
}

} // namespace

PictureDevice::PictureDevice(const SheetSize& sheet, const PictureOrder& order)
    : m_order(order), m_page(pixelsOf(sheet, order.pixelsPerMillimetre)),
      m_image(order.place.size(), QImage::Format_RGB32),
      m_device(m_page, std::max(1.0, order.pixelsPerMillimetre * millimetresPerInch)) {
    if (m_image.isNull()) {
        throw std::bad_alloc();
    }
    m_image.fill(Qt::white);
    m_device.engine().setTile(m_image, order.place, false);
    m_painter.begin(&m_device);
    preparePixelPainter(m_painter, m_page);
}

DeviceGrid PictureDevice::grid() const {
    return pixelGrid(m_order.pixelsPerMillimetre);
}

std::optional<Box2> PictureDevice::beginPart(int /*index*/) {
    const bool isWhole = m_order.place.contains(QRect(QPoint(0, 0), m_page));
    return isWhole ? std::nullopt : std::optional(unitsOf(m_order.place));
}

} // namespace kelplot
