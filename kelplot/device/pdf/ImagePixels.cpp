// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/ImagePixels.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace kelplot {
namespace {

using Row = std::vector<uint8_t>;

constexpr size_t mostColours = 256; ///< of a palette

const QRgb* rowOf(const QImage& image, int y) {
    return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

QRgb colourOf(QRgb pixel) {
    return pixel & 0xFFFFFFU;
}

bool isGrey(QRgb pixel) {
    return qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel);
}

/// What an image holds: its colours where they are few, in their order, and whether it has any but grey.
struct Census {
    std::vector<QRgb> colours;
    bool isGrey = true;
    bool isMany = false;
};

Census censusOf(const QImage& image) {
    Census census;
    QRgb last = 0xFFFFFFFFU;
    for (int y = 0; y < image.height() && !(census.isMany && !census.isGrey); ++y) {
        const QRgb* const row = rowOf(image, y);
        for (int x = 0; x < image.width(); ++x) {
            const QRgb colour = colourOf(row[x]);
            if (colour == last) {
                continue;
            }
            last = colour;
            census.isGrey = census.isGrey && isGrey(colour);
            if (census.isMany) {
                continue;
            }
            const auto place = std::lower_bound(census.colours.begin(), census.colours.end(), colour);
            if (place == census.colours.end() || *place != colour) {
                census.isMany = census.colours.size() == mostColours;
                if (!census.isMany) {
                    census.colours.insert(place, colour);
                }
            }
        }
    }
    return census;
}

uint8_t predicted(int kind, int left, int above, int corner) {
    const int estimate = left + above - corner;
    const int toLeft = std::abs(estimate - left);
    const int toAbove = std::abs(estimate - above);
    const int toCorner = std::abs(estimate - corner);
    switch (kind) {
    case 1:
        return static_cast<uint8_t>(left);
    case 2:
        return static_cast<uint8_t>(above);
    case 3:
        return static_cast<uint8_t>((left + above) / 2);
    case 4:
        if (toLeft <= toAbove && toLeft <= toCorner) {
            return static_cast<uint8_t>(left);
        }
        return static_cast<uint8_t>(toAbove <= toCorner ? above : corner);
    default:
        return 0;
    }
}

/// Writes rows of whole bytes, each by the prediction that leaves the smallest differences.
class PredictedRows {
public:
    PredictedRows(PdfBytes& bytes, size_t rowBytes, size_t pixelBytes)
        : m_bytes(bytes), m_pixelBytes(pixelBytes), m_above(rowBytes, 0) {}

    void add(const Row& row) {
        constexpr int kinds[] = {2, 1, 4}; // those that pay for pictures
        Row best;
        int bestKind = 0;
        int64_t least = std::numeric_limits<int64_t>::max();
        for (const int kind : kinds) {
            const int64_t sum = predict(row, kind);
            if (sum < least) {
                least = sum;
                bestKind = kind;
                best = m_differences;
            }
        }
        m_bytes << static_cast<char>(bestKind)
                << std::string_view(reinterpret_cast<const char*>(best.data()), best.size());
        m_above = row;
    }

private:
    int64_t predict(const Row& row, int kind) {
        m_differences.resize(row.size());
        int64_t sum = 0;
        for (size_t i = 0; i < row.size(); ++i) {
            const bool hasLeft = i >= m_pixelBytes;
            const uint8_t left = hasLeft ? row[i - m_pixelBytes] : uint8_t{0};
            const uint8_t corner = hasLeft ? m_above[i - m_pixelBytes] : uint8_t{0};
            m_differences[i] = static_cast<uint8_t>(row[i] - predicted(kind, left, m_above[i], corner));
            sum += std::abs(static_cast<int8_t>(m_differences[i]));
        }
        return sum;
    }

    PdfBytes& m_bytes;
    size_t m_pixelBytes;
    Row m_above;
    Row m_differences;
};

/// Packs numbers of a few bits, the first in the highest.
template <typename NumberOf>
void addPacked(PdfBytes& bytes, int width, int bits, NumberOf numberOf) {
    for (int x = 0; x < width;) {
        unsigned byte = 0;
        for (int filled = 0; filled < 8; filled += bits, ++x) {
            byte = byte << bits | (x < width ? numberOf(x) : 0U);
        }
        bytes << static_cast<char>(byte);
    }
}

/// Numbers of pixels in as few bits as the largest of them needs.
template <typename NumberOf>
ImagePixels packed(const QImage& image, int bits, NumberOf numberOf) {
    ImagePixels pixels;
    pixels.bits = bits;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* const row = rowOf(image, y);
        addPacked(pixels.bytes, image.width(), bits, [&](int x) { return numberOf(row[x]); });
    }
    return pixels;
}

ImagePixels paletted(const QImage& image, const std::vector<QRgb>& colours) {
    const auto indexOf = [&](QRgb pixel) {
        const auto place = std::lower_bound(colours.begin(), colours.end(), colourOf(pixel));
        return static_cast<unsigned>(place - colours.begin());
    };
    const int bits = colours.size() <= 2 ? 1 : colours.size() <= 4 ? 2 : colours.size() <= 16 ? 4 : 8;
    ImagePixels pixels = packed(image, bits, indexOf);
    pixels.palette = colours;
    return pixels;
}

template <size_t components, typename LevelsOf>
ImagePixels levels(const QImage& image, LevelsOf levelsOf) {
    ImagePixels pixels;
    pixels.components = components;
    pixels.isPredicted = true;
    const size_t rowBytes = static_cast<size_t>(image.width()) * components;
    PredictedRows rows(pixels.bytes, rowBytes, components);
    Row row;
    row.reserve(rowBytes);
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* const source = rowOf(image, y);
        row.clear();
        for (int x = 0; x < image.width(); ++x) {
            const std::array<uint8_t, components> found = levelsOf(source[x]);
            row.insert(row.end(), found.begin(), found.end());
        }
        rows.add(row);
    }
    return pixels;
}

} // namespace

ImagePixels coloursOf(const QImage& image) {
    const Census census = censusOf(image);
    if (!census.isMany && (census.colours.size() <= 16 || !census.isGrey)) {
        return paletted(image, census.colours);
    }
    if (census.isGrey) {
        return levels<1>(image, [](QRgb p) { return std::array{static_cast<uint8_t>(qRed(p))}; });
    }
    return levels<3>(image, [](QRgb p) {
        return std::array{static_cast<uint8_t>(qRed(p)), static_cast<uint8_t>(qGreen(p)),
                          static_cast<uint8_t>(qBlue(p))};
    });
}

std::optional<ImagePixels> opacitiesOf(const QImage& image) {
    constexpr int opaque = 255;
    bool isOpaque = true;
    bool isBilevel = true;
    for (int y = 0; y < image.height() && image.hasAlphaChannel(); ++y) {
        const QRgb* const row = rowOf(image, y);
        for (int x = 0; x < image.width(); ++x) {
            const int opacity = qAlpha(row[x]);
            isOpaque = isOpaque && opacity == opaque;
            isBilevel = isBilevel && (opacity == 0 || opacity == opaque);
        }
    }
    if (isOpaque) {
        return std::nullopt;
    }
    if (isBilevel) {
        return packed(image, 1, [](QRgb pixel) { return qAlpha(pixel) == 0 ? 0U : 1U; });
    }
    return levels<1>(image, [](QRgb p) { return std::array{static_cast<uint8_t>(qAlpha(p))}; });
}

} // namespace kelplot
