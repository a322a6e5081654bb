// SPDX-License-Identifier: BSD-3-Clause
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>

#include "support/ExpectedWarnings.h"
#include "support/ImageBytes.h"

namespace {

namespace fs = std::filesystem;

const fs::path folder = fs::path(KELDRIVER_SHARED_DATA) / "png";

/// Red, green, blue and alpha of each pixel, row after row, in 8 or 16 bits; empty where nothing is stated.
QJsonArray statedPixels(const std::string& stem) {
    const auto bytes = fileBytes(folder / ("ref_" + stem + ".json"));
    return QJsonDocument::fromJson({reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size())})
        .array();
}

int pixelsThatDiffer(const QImage& image, const QJsonArray& stated, bool is16Bit) {
    const int scale = is16Bit ? 257 : 1;
    const int tolerance = is16Bit ? 1 : 0; // halves may be cut to 8 bits either way
    int count = 0;
    for (int i = 0; i < image.width() * image.height(); ++i) {
        const QRgb pixel = image.pixel(i % image.width(), i / image.width());
        const int channels[] = {qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)};
        for (int c = 0; c < 4; ++c) {
            if (std::abs(channels[c] - stated[4 * i + c].toInt() / scale) > tolerance) {
                ++count;
                break;
            }
        }
    }
    return count;
}

bool startsWith(const std::string& name, const std::string& start) {
    return name.compare(0, start.size(), start) == 0;
}

TEST(SampleImages, DecodeToTheStatedPixelsOrNotAtAll) {
    if (!fs::exists(folder)) {
        GTEST_SKIP() << folder << " is missing";
    }
    const ExpectedWarnings readerComplains("libpng");
    int compared = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string stem = entry.path().stem();
        if (startsWith(stem, "ref_") || startsWith(stem, "pngsuite")) {
            continue;
        }
        SCOPED_TRACE(stem);
        const HT_RasterImagePtr image = decode(fileBytes(entry.path()));
        if (startsWith(stem, "x") || startsWith(stem, "trunc_") || startsWith(stem, "bug_x_") ||
            startsWith(stem, "not_png_")) {
            EXPECT_TRUE(image->colorDepth() == -1 && image->pixelWidth() == 0 && image->scanLinesBase() == nullptr);
            continue;
        }
        EXPECT_TRUE(image->colorDepth() != -1 || startsWith(stem, "crash_")); // those may be taken either way
        const QJsonArray stated = statedPixels(stem);
        if (!stated.isEmpty()) {
            const QImage pixels = convertedBack(*image);
            ASSERT_EQ(stated.size(), 4 * pixels.width() * pixels.height());
            EXPECT_EQ(pixelsThatDiffer(pixels, stated, stem.substr(stem.size() - 2) == "16"), 0);
            ++compared;
        }
    }
    EXPECT_GT(compared, 80);
}

} // namespace
