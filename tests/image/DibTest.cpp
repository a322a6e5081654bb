// SPDX-License-Identifier: BSD-3-Clause
#include <climits>
#include <cstring>
#include <random>

#include <gtest/gtest.h>

#include "keldriver/Dib.h"

namespace {

int nearestByFullSearch(unsigned color) {
    const unsigned wanted = (color & 0xFF) << 16 | (color >> 8 & 0xFF) | (color >> 16 & 0xFF) << 8;
    int best = 0, bestDistance = INT_MAX;
    for (int i = 0; i < 255; ++i) {
        int distance = 0;
        for (const int shift : {0, 8, 16}) {
            const int apart =
                static_cast<int>(HT_GetPaletteColors(i) >> shift & 0xFF) - static_cast<int>(wanted >> shift & 0xFF);
            distance += apart * apart;
        }
        if (distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return best;
}

TEST(NearestIndex, KnownColours) {
    const std::pair<unsigned, int> rows[] = {{0x0000FF, 0}, {0xFFFFFF, 6}, {0x808080, 7},  {0, 17},
                                             {0x00FF00, 4}, {0xFF0000, 2}, {0x7F0000FF, 0}};
    for (const auto& [color, index] : rows) {
        EXPECT_EQ(HT_GetNearestIndex(color), index) << std::hex << color;
    }
}

TEST(NearestIndex, AgreesWithAFullSearch) {
    std::mt19937 random(5);
    int wrong = 0;
    for (unsigned i = 0; i < 460000; ++i) { // a grid of colours, then any
        const bool isGrid = i < 64U * 64 * 64;
        const auto color =
            isGrid ? (i & 63U) * 4 | (i >> 6 & 63U) * 4 << 8 | (i >> 12) * 4 << 16 : static_cast<unsigned>(random());
        wrong += HT_GetNearestIndex(color) != nearestByFullSearch(color) ? 1 : 0;
    }
    EXPECT_EQ(wrong, 0);
}

tagBITMAPINFOHEADER header(int32_t width, int32_t height, uint16_t bits) {
    return {40, width, height, 1, bits, 0, 0, 0, 0, 0, 0};
}

TEST(DibSize, OfPixels) {
    EXPECT_EQ(HT_GetDIBPixelSize(header(3, -2, 24)), 24U);
    EXPECT_EQ(HT_GetDIBPixelSize(header(33, 1, 1)), 8U);
    EXPECT_EQ(HT_GetDIBPixelSize(header(-3, 5, 24)), static_cast<uint32_t>(-20)) << "(-72 + 31) / 32 is -1";
    EXPECT_EQ(HT_GetDIBPixelSize(header(INT32_MAX, INT32_MIN, 32)), 0U) << "the low 32 bits";
    tagBITMAPINFOHEADER stated = header(3, 2, 24);
    stated.biSizeImage = 99;
    EXPECT_EQ(HT_GetDIBPixelSize(stated), 99U);
}

TEST(DibSize, OfThePalette) {
    const struct {
        uint16_t bits;
        uint32_t compression;
        uint32_t used;
        int count;
    } rows[] = {{8, 0, 0, 256}, {1, 0, 0, 2}, {4, 3, 7, 7}, {24, 0, 5, 5}, {32, 3, 0, 3}, {16, 3, 2, 5}, {0, 0, 0, 1}};
    for (const auto& row : rows) {
        tagBITMAPINFOHEADER dib = header(1, 1, row.bits);
        dib.biCompression = row.compression;
        dib.biClrUsed = row.used;
        EXPECT_EQ(HT_GetDIBColorCount(dib), row.count) << row.bits << " bits";
    }
}

TEST(PixelColor, IsReadWithinTheImageAndOnItsFarEdges) {
    const unsigned char pixels[] = {1, 2, 3, 255, 4, 5, 6, 0};
    const tagBITMAPINFO info{header(-2, -1, 32), {}};
    tagRGBQUAD color{9, 9, 9, 9};
    for (const auto& [x, y] : {std::pair<long, long>{-1, 0}, {0, -1}, {3, 0}, {0, 2}, {1L << 32, 0}, {LONG_MIN, 0}}) {
        EXPECT_EQ(vndrGetColor(pixels, info, x, y, 0, color), 0) << x << ", " << y;
    }
    EXPECT_EQ(vndrGetColor(nullptr, info, 0, 0, 0, color), 0);
    EXPECT_EQ(vndrGetColor(pixels, {header(0, 1, 32), {}}, 0, 0, 0, color), 0);
    EXPECT_EQ(vndrGetColor(pixels, {header(INT32_MIN, INT32_MIN, 32), {}}, 0, 0, 0, color), 0);
    EXPECT_EQ(color.rgbBlue, 9) << "left alone";
    const struct {
        long x, y;
        tagRGBQUAD color;
    } rows[] = {{0, 0, {1, 2, 3, 1}}, {1, 0, {4, 5, 6, 0}}, {2, 1, {12345 % 256, 12345 / 256, 0, 0}}};
    for (const auto& row : rows) {
        EXPECT_EQ(vndrGetColor(pixels, info, row.x, row.y, 77, color), 1);
        EXPECT_EQ(std::memcmp(&color, &row.color, sizeof color), 0) << row.x;
    }
}

} // namespace
