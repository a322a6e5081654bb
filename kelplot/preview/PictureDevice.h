// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>

#include "device/OutputDevice.h"
#include "device/png/TileEngine.h"
#include "preview/PagePicture.h"

namespace kelplot {

/// A part of a page as a picture on white ground, pixel for pixel as an image file of the page has it.
class PictureDevice final : public OutputDevice {
public:
    /// Throws `std::bad_alloc`.
    PictureDevice(const SheetSize& sheet, const PictureOrder& order);

    DeviceGrid grid() const override;
    QPainter& painter() override { return m_painter; }
    std::optional<Box2> beginPart(int index) override;
    void finish() override { m_painter.end(); }

    /// The picture, once it is finished.
    const QImage& image() const { return m_image; }

private:
    PictureOrder m_order;
    QSize m_page; ///< pixels
    QImage m_image;
    TileDevice m_device;
    QPainter m_painter;
};

} // namespace kelplot
