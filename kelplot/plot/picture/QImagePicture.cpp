// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/picture/QImagePicture.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace kelplot {

QImagePicture::QImagePicture(QImage image) : m_image(std::move(image)) {
    tagBITMAPINFOHEADER& header = m_info.bmiHeader;
    header.biSize = sizeof header;
    header.biWidth = m_image.width();
    header.biHeight = -m_image.height();
    header.biPlanes = 1;
    header.biBitCount = static_cast<uint16_t>(m_image.depth());
}

int32_t QImagePicture::getTransparency() const {
    for (int y = 0; y < m_image.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(m_image.constScanLine(y));
        if (std::any_of(row, row + m_image.width(), [](QRgb pixel) { return qAlpha(pixel) != 255; })) {
            return 1;
        }
    }
    return 0;
}

int32_t QImagePicture::pixelFormat() const {
    constexpr int32_t argb32 = 9; // as the library numbers it for drivers
    return argb32;
}

HT_RasterImagePtr pictureOf(const QImage& image) {
    QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    if (pixels.isNull()) {
        return {};
    }
    const HT_RasterImageDeleter deleter([](HT_RasterImage* picture) { delete static_cast<QImagePicture*>(picture); });
    return {new QImagePicture(std::move(pixels)), deleter};
}

HT_RasterImagePtr pictureOfPng(const void* data, size_t size) {
    if (size > static_cast<size_t>(std::numeric_limits<int>::max())) {
        return {};
    }
    // The bytes are only read, whatever the factory's signature says.
    auto* const bytes = const_cast<unsigned char*>(static_cast<const unsigned char*>(data));
    HT_RasterImagePtr picture = RasterImageFactory::CreateFromDibImage(bytes, static_cast<int>(size));
    return picture->getBitmapInfo() == nullptr ? HT_RasterImagePtr() : std::move(picture);
}

QImage pixelsOf(const HT_RasterImage& picture) {
    const QImage stored(picture.scanLinesBase(), picture.pixelWidth(), std::abs(picture.pixelHeight()),
                        static_cast<int>(picture.scanLineSize()), QImage::Format_ARGB32);
    const bool bottomRowFirst = picture.getBitmapInfo()->bmiHeader.biHeight > 0;
    return bottomRowFirst ? stored.mirrored() : stored.copy();
}

} // namespace kelplot
