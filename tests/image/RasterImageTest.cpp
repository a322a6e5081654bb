// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include "image/ImageAnswers.h"
#include "support/ExpectedWarnings.h"
#include "support/ImageBytes.h"
#include "support/TemporaryDirectory.h"
#include "support/VirtualSlot.h"

static_assert(std::is_abstract_v<HT_RasterImage> && !std::has_virtual_destructor_v<HT_RasterImage>);
static_assert(std::is_trivially_default_constructible_v<RasterImageFactory>);

namespace {

QImage picture(int width, int height, QImage::Format format = QImage::Format_ARGB32) {
    QImage image(width, height, format);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixelColor(x, y, QColor(x * 20 % 256, y * 10 % 256, 77, 255 - x));
        }
    }
    return image;
}

template <typename... Members>
void expectSlotsInOrder(Members... members) {
    ptrdiff_t expected = 0;
    for (const ptrdiff_t slot : {slotOf(members)...}) {
        EXPECT_EQ(slot, expected++);
    }
}

TEST(RasterImage, SlotsKeepTheOrderAgreedWithDrivers) {
    using I = HT_RasterImage;
    expectSlotsInOrder(&I::pixelWidth, &I::pixelHeight, &I::colorDepth, &I::resolutionWidth, &I::resolutionHeight,
                       &I::hasPalette, &I::hasAlpha, &I::transparentColor, &I::getTransparency, &I::imageSource,
                       &I::SetImageSource, &I::pixelFormat, &I::numPaletteColors, &I::paletteData, &I::scanLineSize,
                       &I::scanLinesBase, &I::scanLines, &I::getBitmapInfo, &I::bltDraw, &I::saveAs, &I::convertTo,
                       &I::freeConvert, &I::isMapViewOfFile, &I::destroy, &I::flip, &I::addAlpha);
}

TEST(RasterImage, AnswersForAnAbsentImage) {
    unsigned char junk[] = "no image";
    for (const auto& [data, size] : {std::pair<unsigned char*, int>{junk, 8}, {nullptr, 8}, {junk, 0}, {junk, -1}}) {
        const HT_RasterImagePtr image = RasterImageFactory::CreateFromDibImage(data, size);
        EXPECT_EQ(answersOf(*image), "0 x 0 x -1, resolution -1 x -1, palette 0 no 5 0, alpha 0 0, format 15, "
                                     "rows of 0 no, header no");
        EXPECT_EQ(image->saveAs(L"never.png"), 0U);
        EXPECT_TRUE(convertedBack(*image).isNull());
        image->flip();
        image->addAlpha(7);
        image->destroy();
        EXPECT_EQ(image->transparentColor(), 4294967295U);
    }
    EXPECT_EQ(RasterImageFactory::CreateFromGiRasterImage(nullptr), nullptr);
    EXPECT_EQ(RasterImageFactory::CreateFromDibImage(nullptr, nullptr, nullptr, true), nullptr);
}

TEST(RasterImage, DescribesDecodedImages) {
    QImage indexed(10, 20, QImage::Format_Indexed8);
    indexed.setColorTable({0xFF102030, 0x80405060, 0xFF000000});
    indexed.fill(0);
    indexed.setDotsPerMeterX(11811); // 300 dots per inch
    indexed.setDotsPerMeterY(5906);
    const HT_RasterImagePtr image = decode(imageBytes(indexed)); // whose translucent colour is not used
    EXPECT_EQ(answersOf(*image), "10 x 20 x 8, resolution 300 x 150, palette 1 yes 5 3, alpha 1 0, format 2, "
                                 "rows of 12 yes, header yes");
    unsigned int count = 0;
    const tagRGBQUAD* palette = image->paletteData(count);
    EXPECT_TRUE(palette[0].rgbRed == 0x10 && palette[0].rgbGreen == 0x20 && palette[1].rgbReserved == 0x80);
    const tagBITMAPINFOHEADER& header = image->getBitmapInfo()->bmiHeader;
    EXPECT_TRUE(header.biSize == 40 && header.biWidth == 10 && header.biHeight == -20 && header.biPlanes == 1);
    EXPECT_TRUE(header.biBitCount == 8 && header.biClrUsed == 3);
    image->addAlpha(0);
    EXPECT_EQ(image->getTransparency(), 0) << "colours with a palette have no opacity of their own";

    const std::pair<QImage::Format, int> codes[] = {{QImage::Format_Mono, 1},        {QImage::Format_Grayscale8, 15},
                                                    {QImage::Format_Grayscale16, 3}, {QImage::Format_RGB32, 8},
                                                    {QImage::Format_ARGB32, 9},      {QImage::Format_RGBA64, 15}};
    for (const auto& [format, code] : codes) {
        EXPECT_EQ(decode(imageBytes(picture(5, 5).convertToFormat(format)))->pixelFormat(), code) << format;
    }
}

TEST(RasterImage, MultipliesOpacity) {
    const struct {
        int alpha;
        int before;
        int after;
    } rows[] = {{128, 255, 128}, {128, 1, 1},     {127, 1, 0},  {0, 255, 0},
                {255, 254, 254}, {510, 200, 255}, {-90, 255, 0}};
    for (const QImage::Format format : {QImage::Format_ARGB32, QImage::Format_RGBA64}) {
        for (const auto& row : rows) {
            QImage image(3, 2, format);
            image.fill(QColor(10, 20, 30));
            image.setPixelColor(1, 1, QColor(40, 50, 60, row.before));
            image.setPixelColor(0, 0, QColor(1, 1, 1, 9)); // keeps the alpha channel in the file
            const HT_RasterImagePtr decoded = decode(imageBytes(image));
            EXPECT_EQ(decoded->getTransparency(), 1);
            decoded->addAlpha(row.alpha);
            const QRgb expected = qRgba(40, 50, 60, row.after);
            const QRgb pixel = convertedBack(*decoded).pixel(1, 1);
            EXPECT_EQ(pixel, expected) << row.alpha << " x " << row.before;
        }
    }
}

TEST(RasterImage, FlipsConvertsAndSaves) {
    const QImage original = picture(7, 5);
    const HT_RasterImagePtr image = decode(imageBytes(original));
    image->flip();
    EXPECT_EQ(convertedBack(*image), original.mirrored(false, true));
    image->flip();
    EXPECT_EQ(convertedBack(*image), original);
    EXPECT_FALSE(convertedBack(*image, L"JPG").isNull());

    void* data = nullptr;
    unsigned long size = 0;
    ASSERT_NE(image->convertTo(L"BMP", &data, &size, 4294967295UL), 0U); // the format's own quality
    for (const unsigned long odd : {101UL, 4294967294UL, 2147483648UL, 1UL << 40}) {
        EXPECT_NE(image->convertTo(L"JPG", &data, &size, odd), 0U) << odd; // and Qt says nothing
    }
    ASSERT_NE(image->convertTo(L"BMP", &data, &size, 50), 0U);
    EXPECT_TRUE(image->convertTo(L"BMP", nullptr, &size, 50) == 0 && image->convertTo(L"BMP", &data, nullptr, 50) == 0);
    void* const kept = data;
    const std::string bytes(static_cast<char*>(data), size);
    for (const wchar_t* unknown : {L"no such format", L"", static_cast<const wchar_t*>(nullptr)}) {
        EXPECT_EQ(image->convertTo(unknown, &data, &size, 50), 0U);
        EXPECT_TRUE(data == kept && size == bytes.size());
    }
    EXPECT_EQ(std::string(static_cast<char*>(kept), size), bytes) << "still there after the failures";
    image->freeConvert();

    const TemporaryDirectory directory;
    EXPECT_EQ(image->saveAs(QString::fromStdString(directory.path("ж.png")).toStdWString().c_str()), 1U);
    EXPECT_EQ(QImage(QString::fromStdString(directory.path("ж.png"))), original);
    EXPECT_EQ(image->saveAs(QString::fromStdString(directory.path("a.nothing")).toStdWString().c_str()), 0U);
}

// Chunks after the header name the one colour of a deep picture that is to be seen through.
TEST(RasterImage, SeesThroughTheKeyColourOfDeepPictures) {
    const ExpectedWarnings readerComplains("libpng"); // of a wrong checksum
    QImage deep(2, 1, QImage::Format_RGBX64);
    deep.setPixelColor(0, 0, QColor(QRgba64::fromRgba64(0x1000, 0x2000, 0x3000, 0xFFFF)));
    deep.setPixelColor(1, 0, QColor(QRgba64::fromRgba64(0x4000, 0x5000, 0x6001, 0xFFFF)));
    const std::vector<unsigned char> whole = imageBytes(deep);
    const std::string first("\0\0\0\6tRNS\x10\0\x20\0\x30\0\x12\x04\x9C\xC7", 18);
    const std::string second("\0\0\0\6tRNS\x40\0\x50\0\x60\1\xB8\x09\x59\x6E", 18);
    const std::string damaged = first.substr(0, 17) + '\0';
    const std::tuple<std::string, int, int> rows[] = {
        {"", 255, 255},           {first, 0, 255},     {second, 255, 0},
        {first + second, 0, 255}, {damaged, 255, 255}, {damaged + second, 255, 0},
    };
    for (const auto& [chunks, left, right] : rows) {
        std::vector<unsigned char> file = whole;
        file.insert(file.begin() + 33, chunks.begin(), chunks.end());
        const QImage image = convertedBack(*decode(file));
        EXPECT_EQ(image.pixel(0, 0), qRgba(0x10, 0x20, 0x30, left)) << chunks;
        EXPECT_EQ(image.pixel(1, 0), qRgba(0x40, 0x50, 0x60, right)) << chunks;
    }
    std::vector<unsigned char> file = whole;
    file[33] = 0x7F; // far more in the second chunk than there is
    EXPECT_EQ(decode(file)->colorDepth(), -1);
}

} // namespace
