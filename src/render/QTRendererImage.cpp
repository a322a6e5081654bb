// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/QTRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <QPainter>
#include <QRectF>

#include "geometry/Numeric.h"
#include "image/OwnImages.h"
#include "keldriver/RasterImage.h"

using namespace KelDriver::Internal;

namespace {

constexpr uint32_t opaque = 255;

// Where an image goes, in whole device units; a height of 0 or less grows upward from the top edge.
struct Destination {
    double x;
    double y;
    double width;
    double height;
};

// Rounded in plot units and cut off in device units, as the interface has it.
double deviceLength(double length, double scale) {
    return truncateToInt32(roundToInt32(length) * scale);
}

Destination destinationFor(const HT_RasterImage_Record& record, double scale) {
    // One row more than there are, while columns are counted as they are: part of the interface.
    const double rows = std::fabs(static_cast<double>(record.image->pixelHeight())) + 1.0;
    const double height = std::copysign(roundToInt32(std::fabs(rows * record.heightFactor)), record.heightFactor);
    return {deviceLength(record.x, scale), deviceLength(record.y, scale),
            deviceLength(record.image->pixelWidth() * record.widthFactor, scale),
            static_cast<double>(truncateToInt32(height * scale))};
}

// How many bytes of pixels an image is known to have. Memory that is not the library's own is trusted, and nothing
// that drawing does not need is asked of its image.
uint64_t knownSize(const HT_RasterImage& image) {
    if (!KelDriver::Internal::OwnImages::contains(image)) {
        return UINT64_MAX;
    }
    const auto rows = static_cast<uint64_t>(std::abs(int64_t{image.pixelHeight()}));
    return image.scanLineSize() * rows;
}

// The image's memory read as 32 bits per pixel, whatever depth it has; null when there is nothing to draw.
QImage pixelsOf(const HT_RasterImage& image, const tagBITMAPINFOHEADER& header) {
    const int64_t height = std::abs(int64_t{header.biHeight});
    const unsigned char* first = image.scanLinesBase();
    if (first == nullptr || header.biWidth <= 0 || height == 0 || height > INT32_MAX) {
        return {};
    }
    const auto rows = static_cast<int>(height);
    const uint64_t statedSize = sizeof(QRgb) * static_cast<uint64_t>(header.biWidth) * static_cast<uint64_t>(height);
    const uint64_t size = std::min(knownSize(image), statedSize);
    const bool isAligned = reinterpret_cast<uintptr_t>(first) % alignof(QRgb) == 0;
    if (size == statedSize && isAligned) {
        return {first, header.biWidth, rows, QImage::Format_ARGB32};
    }
    QImage copy(header.biWidth, rows, QImage::Format_ARGB32); // null when there is no memory for it
    if (!copy.isNull()) {
        copy.fill(0);
        std::memcpy(copy.bits(), first, size);
    }
    return copy;
}

// Multiplies opacities by `alpha` / 255. The integer quotient is what the product with the factor in single precision
// is cut off to, for every pair of bytes; it is written without a division, exact for products of bytes.
void copyRow(uint32_t* __restrict target, const uint32_t* __restrict source, int count, uint32_t alpha) {
    for (int i = 0; i < count; ++i) {
        const uint32_t product = (source[i] >> 24) * alpha;
        const uint32_t quotient = (product + 1 + (product >> 8)) >> 8;
        target[i] = (source[i] & 0x00FFFFFF) | quotient << 24;
    }
}

// A copy with less opacity, upside down where that is asked for as well.
QImage translucentCopy(const QImage& image, uint32_t alpha, bool isFlipped) {
    QImage copy(image.size(), QImage::Format_ARGB32);
    const int rows = copy.height(); // 0 when there is no memory for it
    for (int y = 0; y < rows; ++y) {
        copyRow(reinterpret_cast<uint32_t*>(copy.scanLine(y)),
                reinterpret_cast<const uint32_t*>(image.constScanLine(isFlipped ? rows - 1 - y : y)), image.width(),
                alpha);
    }
    return copy;
}

} // namespace

void QTRenderer::DrawImage(HT_RasterImage_Record* record) {
    if (record == nullptr || painter == nullptr || record->image == nullptr) {
        return;
    }
    const tagBITMAPINFO* info = record->image->getBitmapInfo();
    if (info == nullptr) {
        return;
    }
    QImage image = pixelsOf(*record->image, info->bmiHeader);
    const Destination place = destinationFor(*record, scale);
    const bool isFlipped = place.height <= 0;
    if (alpha != opaque) {
        image = translucentCopy(image, alpha, isFlipped);
    } else if (isFlipped) {
        image = image.mirrored(false, true);
    }
    const double top = isFlipped ? place.y + place.height : place.y;
    painter->drawImage(QRectF(place.x, top, place.width, std::fabs(place.height)), image, QRectF(image.rect()));
}
