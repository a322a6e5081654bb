// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/picture/PicturePixels.h"

#include <QBuffer>
#include <cstdlib>
#include <limits>
#include <vector>

namespace kelplot {

HT_RasterImagePtr pictureOfPng(const void* data, size_t size) {
    if (size > static_cast<size_t>(std::numeric_limits<int>::max())) {
        return {};
    }
    // The bytes are only read, whatever the factory's signature says.
    auto* const bytes = const_cast<unsigned char*>(static_cast<const unsigned char*>(data));
    HT_RasterImagePtr picture = RasterImageFactory::CreateFromDibImage(bytes, static_cast<int>(size));
    return picture->getBitmapInfo() == nullptr ? HT_RasterImagePtr() : std::move(picture);
}

HT_RasterImagePtr pictureOf(const QImage& image) {
    QBuffer encoded;
    constexpr int uncompressed = 100;
    if (image.isNull() || !image.save(&encoded, "PNG", uncompressed)) {
        return {};
    }
    return pictureOfPng(encoded.data().constData(), static_cast<size_t>(encoded.size()));
}

QImage pixelsOf(const HT_RasterImage& picture) {
    const QImage stored(picture.scanLinesBase(), picture.pixelWidth(), std::abs(picture.pixelHeight()),
                        static_cast<int>(picture.scanLineSize()), QImage::Format_ARGB32);
    const bool bottomRowFirst = picture.getBitmapInfo()->bmiHeader.biHeight > 0;
    return bottomRowFirst ? stored.mirrored() : stored.copy();
}

} // namespace kelplot
