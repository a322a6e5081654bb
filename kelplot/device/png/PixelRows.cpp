// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/png/PixelRows.h"

namespace kelplot {
namespace {

constexpr int dotCell = 8; ///< pixels each way

/// Turns a number of three bits round, so that neighbours in the order lie far apart.
constexpr int reversed(int bits) {
    return (bits & 1) << 2 | (bits & 2) | (bits & 4) >> 2;
}

/// The place of a pixel, from 0 to 63, in the order in which a darkening tone turns pixels black. The first eight lie
/// in different rows and columns, so that a thin line of a tone as light as yellow still leaves dots whichever row or
/// column it runs along.
constexpr int placeInOrder(int x, int y) {
    return dotCell * reversed((x + 3 * y) % dotCell) + reversed(y % dotCell);
}

bool isBlack(QRgb pixel, int x, int y) {
    constexpr int places = dotCell * dotCell;
    return (255 - qGray(pixel)) * places > placeInOrder(x, y) * 255;
}

void putColours(const QRgb* pixels, int count, uchar* bytes) {
    for (int i = 0; i < count; ++i) {
        *bytes++ = static_cast<uchar>(qRed(pixels[i]));
        *bytes++ = static_cast<uchar>(qGreen(pixels[i]));
        *bytes++ = static_cast<uchar>(qBlue(pixels[i]));
    }
}

void putGreys(const QRgb* pixels, int count, uchar* bytes) {
    for (int i = 0; i < count; ++i) {
        bytes[i] = static_cast<uchar>(qGray(pixels[i]));
    }
}

/// White is 1, and the first pixel the highest bit.
void putBits(const QRgb* pixels, int count, int row, uchar* bytes) {
    constexpr QRgb white = 0xffffffff;
    for (int first = 0; first < count; first += 8) {
        unsigned bits = 0;
        for (int x = first; x < first + 8; ++x) {
            const bool black = x < count && pixels[x] != white && isBlack(pixels[x], x, row);
            bits = bits << 1 | (black ? 0U : 1U);
        }
        bytes[first / 8] = static_cast<uchar>(bits);
    }
}

} // namespace

const std::vector<uchar>& PixelRows::bytesOf(const QImage& pixels, int row, int pageRow) {
    const auto* const from = reinterpret_cast<const QRgb*>(pixels.constScanLine(row));
    const int count = pixels.width();
    const auto size = static_cast<size_t>(count);
    switch (m_kind) {
    case PixelKind::colour:
        m_bytes.resize(size * 3);
        putColours(from, count, m_bytes.data());
        break;
    case PixelKind::grey:
        m_bytes.resize(size);
        putGreys(from, count, m_bytes.data());
        break;
    case PixelKind::bilevel:
        m_bytes.resize((size + 7) / 8);
        putBits(from, count, pageRow, m_bytes.data());
        break;
    }
    return m_bytes;
}

} // namespace kelplot
