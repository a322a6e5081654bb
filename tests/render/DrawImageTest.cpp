// SPDX-License-Identifier: BSD-3-Clause
#include <cstring>
#include <vector>

#include "imgo.h"
#include "render/FakeImage.h"
#include "render/RendererFixture.h"
#include "support/ImageBytes.h"

namespace {

class ImageTest : public RendererTest {
protected:
    /// Draws an image at its size, one row more than it has, or upside down.
    QImage drawn(HT_RasterImage& image, double heightFactor = 1) {
        HT_RasterImage_Record record{&image, 0, 0, 1, {}, heightFactor};
        renderer.DrawImage(&record);
        return recorder.calls().back().image;
    }
};

std::vector<uint32_t> pixelsOf(const QImage& image) {
    const auto* pixels = reinterpret_cast<const uint32_t*>(image.constBits());
    return {pixels, pixels + static_cast<ptrdiff_t>(image.width()) * image.height()};
}

TEST_F(ImageTest, OpaquePixelsAreDrawnFromTheirOwnMemory) {
    FakeImage image(3, 2);
    EXPECT_EQ(drawn(image).constBits(), image.pixels);
    QImage black(3, 2, QImage::Format_RGB32);
    black.fill(Qt::black);
    const HT_RasterImagePtr decoded = decode(imageBytes(black));
    EXPECT_EQ(drawn(*decoded).constBits(), decoded->scanLinesBase());

    const std::vector<uint32_t> pixels = {1, 2, 3, 4, 5, 6};
    std::vector<unsigned char> unaligned(4 * pixels.size() + 1);
    std::memcpy(&unaligned[1], pixels.data(), 4 * pixels.size());
    image.pixels = &unaligned[1];
    EXPECT_EQ(pixelsOf(drawn(image)), pixels);
}

TEST_F(ImageTest, OpacityMultipliesThatOfEachPixel) {
    FakeImage image(256, 1);
    for (uint32_t i = 0; i < 256; ++i) {
        image.memory[i] = i << 24 | 0x123456;
    }
    const std::vector<uint32_t> original = image.memory;
    for (unsigned opacity = 0; opacity < 256; ++opacity) {
        std::vector<uint32_t> expected;
        for (unsigned i = 0; i < 256; ++i) {
            const double factor = static_cast<float>(opacity) / 255.0F;
            expected.push_back(static_cast<uint32_t>(i * factor) << 24 | 0x123456);
        }
        renderer.SetAlpha(static_cast<unsigned char>(opacity));
        ASSERT_EQ(pixelsOf(drawn(image)), expected) << opacity;
    }
    EXPECT_EQ(image.memory, original) << "the driver's memory is only read";
}

TEST_F(ImageTest, NegativeFactorTurnsTheImage) {
    FakeImage image(1, 3);
    image.memory = {0xFF000001, 0xFF000002, 0x80000003};
    EXPECT_EQ(pixelsOf(drawn(image, -1)), (std::vector<uint32_t>{0x80000003, 0xFF000002, 0xFF000001}));
    renderer.SetAlpha(128);
    renderer.SetColor(0); // makes the ink opaque, not the images
    EXPECT_EQ(pixelsOf(drawn(image, -1)), (std::vector<uint32_t>{0x40000003, 0x80000002, 0x80000001}));
}

HT_RasterImagePtr libraryImage(const std::vector<unsigned char>& bytes) {
    return RasterImageFactory::CreateFromGiRasterImage(Imgo::Image::LoadBytes(bytes.data(), bytes.size()).release());
}

TEST_F(ImageTest, ImagesOfOtherDepthsEndWithTheirBytes) {
    QImage white(40, 3, QImage::Format_RGB32);
    white.fill(Qt::white);
    const auto bytes = [&](QImage::Format format) {
        return imageBytes(white.convertToFormat(format));
    };
    const HT_RasterImagePtr images[] = {decode(bytes(QImage::Format_Mono)),
                                        libraryImage(bytes(QImage::Format_Indexed8)),
                                        libraryImage(bytes(QImage::Format_RGB32))};
    for (const HT_RasterImagePtr& image : images) {
        QImage(40, 3, QImage::Format_ARGB32).fill(Qt::red); // leaves memory behind that is not zero
        const QImage page = drawn(*image);
        ASSERT_EQ(page.size(), QSize(40, 3));
        std::vector<unsigned char> expected(static_cast<size_t>(page.sizeInBytes()));
        std::memcpy(expected.data(), image->scanLinesBase(), size_t{3} * image->scanLineSize());
        EXPECT_EQ(std::vector<unsigned char>(page.constBits(), page.constBits() + expected.size()), expected)
            << image->colorDepth();
    }
}

TEST_F(ImageTest, NothingIsDrawnWithoutAnImage) {
    FakeImage unheaded(2, 2), unfilled(2, 2), flat(2, 2), mirrored(2, 2), endless(2, 2);
    unheaded.info = nullptr;
    unfilled.pixels = nullptr;
    flat.header.bmiHeader.biHeight = 0;
    mirrored.header.bmiHeader.biWidth = -2;
    endless.header.bmiHeader.biWidth = INT32_MAX;
    endless.header.bmiHeader.biHeight = INT32_MIN;
    for (FakeImage* image : {static_cast<FakeImage*>(nullptr), &unheaded, &unfilled, &flat, &mirrored, &endless}) {
        for (const double factor : {1.0, -1.0}) {
            HT_RasterImage_Record record{image, 0, 0, 1, {}, factor};
            renderer.SetAlpha(factor > 0 ? 255 : 128);
            renderer.DrawImage(&record);
            QTRenderer().DrawImage(&record);
        }
    }
    renderer.DrawImage(nullptr);
    EXPECT_EQ(recorder.shapes(), "");
}

} // namespace
