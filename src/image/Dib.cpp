// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/Dib.h"

#include <cstdlib>
#include <cstring>

#include <QImage>

namespace {

constexpr uint32_t bitFields = 3; // a compression whose colour entries start with three masks
constexpr uint32_t maskCount = 3;
constexpr int64_t bytesPerPixel = 4;
constexpr QRgb pixelOutside = 12345; // as `QImage::pixel` answers, which complains on standard error as well

} // namespace

uint32_t HT_GetDIBPixelSize(const tagBITMAPINFOHEADER& header) {
    if (header.biSizeImage != 0) {
        return header.biSizeImage;
    }
    const int64_t rowSize = (int64_t{header.biBitCount} * header.biWidth + 31) / 32 * 4;
    const auto rows = static_cast<uint64_t>(std::abs(int64_t{header.biHeight}));
    return static_cast<uint32_t>(static_cast<uint64_t>(rowSize) * header.biPlanes * rows);
}

int HT_GetDIBColorCount(const tagBITMAPINFOHEADER& header) {
    if (header.biBitCount > 8) {
        return static_cast<int>(header.biClrUsed + (header.biCompression == bitFields ? maskCount : 0));
    }
    return header.biClrUsed != 0 ? static_cast<int>(header.biClrUsed) : 1 << header.biBitCount;
}

int vndrGetColor(const unsigned char* pixels, const tagBITMAPINFO& info, long x, long y, long, tagRGBQUAD& color) {
    const int64_t width = std::abs(int64_t{info.bmiHeader.biWidth});
    const int64_t height = std::abs(int64_t{info.bmiHeader.biHeight});
    if (x < 0 || x > width || y < 0 || y > height || width * bytesPerPixel > INT32_MAX || height > INT32_MAX) {
        return 0; // a row of more bytes is no image to Qt
    }
    const QImage image(pixels, static_cast<int>(width), static_cast<int>(height),
                       static_cast<int>(width * bytesPerPixel), QImage::Format_ARGB32);
    if (image.isNull()) {
        return 0;
    }
    // One past the edge passes, which is part of the interface, and gives what Qt answers for a pixel outside.
    const bool isInside = x < width && y < height;
    QRgb pixel = pixelOutside;
    if (isInside) { // by bytes: the pixels of a file in memory need not be aligned
        std::memcpy(&pixel, pixels + (y * width + x) * bytesPerPixel, sizeof pixel);
    }
    color.rgbBlue = static_cast<uint8_t>(qBlue(pixel));
    color.rgbGreen = static_cast<uint8_t>(qGreen(pixel));
    color.rgbRed = static_cast<uint8_t>(qRed(pixel));
    color.rgbReserved = qAlpha(pixel) != 0 ? 1 : 0;
    return 1;
}
