// SPDX-License-Identifier: BSD-3-Clause
#include "image/Opacity.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include <QImage>
#include <QRgba64>

#include "geometry/Numeric.h"

namespace KelDriver::Internal {

namespace {

constexpr uint32_t alphaBits = 0xFF000000;
constexpr uint32_t colorBits = 0x00FFFFFF;

using OpacityTable = std::array<uint8_t, 256>;

OpacityTable opacityTable(int alpha) {
    OpacityTable table;
    for (int old = 0; old < 256; ++old) {
        const int32_t product = roundToInt32(alpha / 255.0 * old);
        table[static_cast<size_t>(old)] = static_cast<uint8_t>(std::clamp(product, 0, 255));
    }
    return table;
}

bool isOpaqueRow(const QRgb* pixels, int count) {
    QRgb common = alphaBits;
    for (int i = 0; i < count; ++i) {
        common &= pixels[i];
    }
    return common == alphaBits;
}

bool isOpaqueRow(const QRgba64* pixels, int count) {
    return std::all_of(pixels, pixels + count, [](QRgba64 pixel) { return pixel.alpha8() == 255; });
}

template <typename Pixel>
bool hasOpaqueRows(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        if (!isOpaqueRow(reinterpret_cast<const Pixel*>(image.constScanLine(y)), image.width())) {
            return false;
        }
    }
    return true;
}

void multiplyRow(QRgb* pixels, int count, const OpacityTable& table) {
    for (int i = 0; i < count; ++i) {
        const QRgb opacity = table[pixels[i] >> 24];
        pixels[i] = (pixels[i] & colorBits) | opacity << 24;
    }
}

void multiplyRow(QRgba64* pixels, int count, const OpacityTable& table) {
    for (int i = 0; i < count; ++i) {
        pixels[i].setAlpha(static_cast<quint16>(table[pixels[i].alpha8()] * 257)); // 255 becomes 65535
    }
}

template <typename Pixel>
void multiplyRows(QImage& image, const OpacityTable& table) {
    for (int y = 0; y < image.height(); ++y) {
        multiplyRow(reinterpret_cast<Pixel*>(image.scanLine(y)), image.width(), table);
    }
}

} // namespace

bool hasTranslucentPixel(const QImage& image) {
    if (!image.hasAlphaChannel()) {
        return false;
    }
    if (image.format() == QImage::Format_RGBA64) {
        return !hasOpaqueRows<QRgba64>(image);
    }
    return !hasOpaqueRows<QRgb>(image.convertToFormat(QImage::Format_ARGB32)); // shares the memory of one that is that
}

void multiplyOpacity(QImage& image, int alpha) {
    if (!image.hasAlphaChannel() || image.colorCount() != 0) {
        return;
    }
    const OpacityTable table = opacityTable(alpha);
    if (image.format() == QImage::Format_RGBA64) {
        multiplyRows<QRgba64>(image, table);
    } else if (image.format() == QImage::Format_ARGB32) {
        multiplyRows<QRgb>(image, table);
    }
}

} // namespace KelDriver::Internal
