// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>
#include <optional>
#include <vector>

#include "device/pdf/PdfBytes.h"

namespace kelplot {

/// The pixels of an image as a PDF document keeps them, in as few bits as they need.
struct ImagePixels {
    PdfBytes bytes;
    int components = 1;
    int bits = 8;              ///< of a component
    bool isPredicted = false;  ///< each row has the kind of its prediction before it, as in a PNG file
    std::vector<QRgb> palette; ///< empty: the components are levels of grey or of colours
};

/// The colours, without regard to opacities.
///
/// @param image  of 32 bits a pixel, not premultiplied
ImagePixels coloursOf(const QImage& image);

/// The opacities of the same; nothing where all pixels are opaque.
std::optional<ImagePixels> opacitiesOf(const QImage& image);

} // namespace kelplot
