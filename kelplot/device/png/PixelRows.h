// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>
#include <vector>

#include "device/OutputDevice.h"

namespace kelplot {

/// The bytes of a row of pixels in a PNG file.
class PixelRows {
public:
    explicit PixelRows(PixelKind kind) : m_kind(kind) {}

    /// The bytes of a row, valid until the next call.
    ///
    /// @param pixels  RGB32
    /// @param row  of the pixels
    /// @param pageRow  of the page, which places the dots of tones in black and white
    const std::vector<uchar>& bytesOf(const QImage& pixels, int row, int pageRow);

private:
    PixelKind m_kind;
    std::vector<uchar> m_bytes;
};

} // namespace kelplot
