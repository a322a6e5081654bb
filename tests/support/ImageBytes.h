// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <vector>

#include <QBuffer>
#include <QImage>

#include "keldriver/RasterImage.h"

/// The bytes of a file that an image would be written to.
inline std::vector<unsigned char> imageBytes(const QImage& image, const char* format = "PNG") {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return {bytes.begin(), bytes.end()};
}

inline HT_RasterImagePtr decode(std::vector<unsigned char> bytes) {
    return RasterImageFactory::CreateFromDibImage(bytes.data(), static_cast<int>(bytes.size()));
}

/// What `convertTo` writes, read back with 32 bits a pixel; null when it fails.
inline QImage convertedBack(HT_RasterImage& image, const wchar_t* format = L"PNG") {
    void* data = nullptr;
    unsigned long size = 0;
    if (image.convertTo(format, &data, &size, 100) == 0) {
        return {};
    }
    return QImage::fromData(static_cast<const uchar*>(data), static_cast<int>(size))
        .convertToFormat(QImage::Format_ARGB32);
}
