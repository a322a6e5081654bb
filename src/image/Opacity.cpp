#include "image/Opacity.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include <QImage>

#include "geometry/Rounding.h"

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

bool isOpaqueRow(const uint32_t* pixels, int count) {
    uint32_t common = alphaBits;
    for (int i = 0; i < count; ++i) {
        common &= pixels[i];
    }
    return common == alphaBits;
}

void multiplyRow(uint32_t* pixels, int count, const OpacityTable& table) {
    for (int i = 0; i < count; ++i) {
        const uint32_t opacity = table[pixels[i] >> 24];
        pixels[i] = (pixels[i] & colorBits) | opacity << 24;
    }
}

} // namespace

bool hasTranslucentPixel(const QImage& image) {
    if (!image.hasAlphaChannel()) {
        return false;
    }
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32); // shares the memory where it is that already
    for (int y = 0; y < pixels.height(); ++y) {
        if (!isOpaqueRow(reinterpret_cast<const uint32_t*>(pixels.constScanLine(y)), pixels.width())) {
            return true;
        }
    }
    return false;
}

void multiplyOpacity(QImage& image, int alpha) {
    if (!image.hasAlphaChannel() || image.colorCount() != 0) {
        return;
    }
    const OpacityTable table = opacityTable(alpha);
    if (image.format() == QImage::Format_ARGB32) {
        for (int y = 0; y < image.height(); ++y) {
            multiplyRow(reinterpret_cast<uint32_t*>(image.scanLine(y)), image.width(), table);
        }
        return;
    }
    for (int y = 0; y < image.height(); ++y) { // 16 bits a channel
        for (int x = 0; x < image.width(); ++x) {
            QColor color = image.pixelColor(x, y);
            color.setAlpha(table[static_cast<size_t>(color.alpha())]);
            image.setPixelColor(x, y, color);
        }
    }
}
