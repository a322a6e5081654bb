// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>
#include <cstddef>

#include "keldriver/RasterImage.h"

namespace kelplot {

/// The picture in the bytes of a PNG file; null where they hold none.
HT_RasterImagePtr pictureOfPng(const void* data, size_t size);

/// A picture with these pixels; null without memory for it.
HT_RasterImagePtr pictureOf(const QImage& image);

/// A copy of the pixels of a picture with 32 bits a pixel, in `Format_ARGB32`.
QImage pixelsOf(const HT_RasterImage& picture);

} // namespace kelplot
