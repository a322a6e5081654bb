// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include "imgo.h"
#include "support/ImageBytes.h"
#include "support/TemporaryDirectory.h"

namespace {

QImage picture(QImage::Format format) {
    QImage image(5, 3, QImage::Format_ARGB32);
    image.fill(0xFF000000);
    image.setPixel(1, 2, 0xFFFFFFFF); // in the bottom row
    if (format == QImage::Format_ARGB32) {
        image.setPixel(0, 0, 0x40102030);
    }
    image = image.convertToFormat(format);
    image.setDotsPerMeterX(11800);
    image.setDotsPerMeterY(5900);
    return image;
}

std::unique_ptr<Imgo::Image> load(const std::vector<unsigned char>& bytes) {
    return Imgo::Image::LoadBytes(bytes.data(), bytes.size());
}

// The colour of a pixel as any reader of DIBs finds it, 0xAARRGGBB; opaque below 32 bits.
uint32_t dibPixel(const Imgo::DibInfo& dib, uint32_t x, uint32_t rowFromBottom) {
    const unsigned char* row = dib.pixels + size_t{rowFromBottom} * dib.scanLineSize;
    const auto color = [](const unsigned char* bgr) {
        return static_cast<uint32_t>(bgr[0] | bgr[1] << 8 | bgr[2] << 16);
    };
    if (dib.bitCount <= 8) {
        const unsigned index = dib.bitCount == 8 ? row[x] : row[x / 8] >> (7 - x % 8) & 1U;
        return 0xFF000000 | color(reinterpret_cast<const unsigned char*>(dib.info->bmiColors + index));
    }
    const unsigned char* pixel = row + size_t{x} * static_cast<size_t>(dib.bitCount) / 8;
    return color(pixel) | (dib.bitCount == 32 ? static_cast<uint32_t>(pixel[3]) << 24 : 0xFF000000);
}

TEST(ImageLibrary, GivesADibOfEachDepth) {
    const struct {
        QImage::Format format;
        const char* file;
        int bits;
        uint32_t paletteCount;
        uint32_t rowSize;
    } rows[] = {
        {QImage::Format_Mono, "PNG", 1, 2, 4},          {QImage::Format_Mono, "BMP", 1, 2, 4},
        {QImage::Format_Grayscale8, "PNG", 8, 256, 8},  {QImage::Format_Indexed8, "BMP", 8, 256, 8},
        {QImage::Format_Grayscale16, "PNG", 8, 256, 8}, {QImage::Format_RGB32, "PNG", 24, 0, 16},
        {QImage::Format_RGB32, "BMP", 24, 0, 16},       {QImage::Format_ARGB32, "PNG", 32, 0, 20},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.format) + row.file);
        const auto image = load(imageBytes(picture(row.format), row.file));
        ASSERT_NE(image, nullptr);
        EXPECT_EQ(image->GetDibInfo(false), nullptr) << "not made yet";
        const Imgo::DibInfo* dib = image->GetDibInfo(true);
        ASSERT_NE(dib, nullptr);
        const tagBITMAPINFOHEADER& header = dib->info->bmiHeader;
        EXPECT_TRUE(header.biSize == 40 && header.biWidth == 5 && header.biHeight == 3 && header.biPlanes == 1);
        EXPECT_TRUE(header.biXPelsPerMeter == 11800 && header.biYPelsPerMeter == 5900);
        EXPECT_TRUE(header.biBitCount == row.bits && dib->bitCount == row.bits);
        EXPECT_LE(dib->paletteCount, row.paletteCount);
        EXPECT_TRUE(dib->paletteCount == header.biClrUsed && (dib->paletteCount > 0) == (row.paletteCount > 0));
        EXPECT_EQ(dib->scanLineSize, row.rowSize);
        EXPECT_EQ(dibPixel(*dib, 1, 0), 0xFFFFFFFF) << "the bottom row comes first";
        EXPECT_EQ(dibPixel(*dib, 1, 1), 0xFF000000);
        const bool isTranslucent = row.format == QImage::Format_ARGB32;
        EXPECT_EQ(dibPixel(*dib, 0, 2), isTranslucent ? 0x40102030 : 0xFF000000);
        EXPECT_EQ(image->GetDibTransparency(true), isTranslucent ? 1 : 0);

        image->AddAlphaOnCvtBmp(128);
        dib = image->GetDibInfo(true);
        EXPECT_TRUE(dib->bitCount == 32 && dib->paletteCount == 0 && dib->scanLineSize == 20);
        EXPECT_EQ(dibPixel(*dib, 0, 0), 0x80000000);
        EXPECT_EQ(dibPixel(*dib, 1, 0), 0x80FFFFFF);
        EXPECT_EQ(image->GetDibTransparency(true), 1);
    }
}

TEST(ImageLibrary, ReadsFilesAndRefusesOthers) {
    const TemporaryDirectory directory;
    const auto jpeg = imageBytes(picture(QImage::Format_RGB32), "JPG");
    const std::string path = directory.write("ж.png", {jpeg.begin(), jpeg.end()}); // told by the content
    const auto image = Imgo::Image::LoadFile(path);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetDibInfo(true)->bitCount, 24);
    EXPECT_EQ(Imgo::Image::LoadFile(directory.path("none.png")), nullptr);
    EXPECT_EQ(Imgo::Image::LoadFile(directory.path()), nullptr);
    EXPECT_EQ(load({'n', 'o'}), nullptr);
    EXPECT_EQ(Imgo::Image::LoadBytes(nullptr, 5), nullptr);
    EXPECT_EQ(Imgo::Image::LoadBytes("", 0), nullptr);
}

} // namespace
