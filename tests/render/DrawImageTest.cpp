// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>
#include <cstring>
#include <vector>

#include "imgo.h"
#include "render/FakeImage.h"
#include "render/RendererFixture.h"
#include "support/ImageBytes.h"

namespace {

/// A driver's image with its memory.
struct DriverImage : FakeImage {
    DriverImage(int columns, int rows) : memory(static_cast<size_t>(columns) * static_cast<size_t>(rows)) {
        width = columns;
        height = rows;
        header.bmiHeader.biWidth = columns;
        header.bmiHeader.biHeight = rows;
        pixels = reinterpret_cast<const unsigned char*>(memory.data());
        info = &header;
    }

    std::vector<uint32_t> memory;
    tagBITMAPINFO header{};
};

TEST_F(RendererTest, ImageGoesWhereItsRecordSays) {
    const struct {
        double scale;
        int rows;
        HT_RasterImage_Record record;
        const char* expected;
    } rows[] = {
        {1, 50, {nullptr, 10, 20, 1, {}, 1}, "10,20 100x51"},
        {1, 50, {nullptr, 10, 20, 1, {}, -1}, "10,-31 100x51"},
        {1, -50, {nullptr, 10, 20, 1, {}, 1}, "10,20 100x51"},
        {2, 50, {nullptr, 10.4, -3.5, 0.505, {}, 1}, "20,-8 102x102"},
        {0.5, 50, {nullptr, 3, 5, 0.015, {}, -1}, "1,-23 1x25"},
        {1, 50, {nullptr, 1e12, -1e12, 1, {}, 1e12}, "2147483647,-2147483648 100x2147483647"},
        {1, 50, {nullptr, 10, 20, 1, {}, 0}, nullptr},
    };
    for (auto row : rows) {
        DriverImage image(100, std::abs(row.rows));
        image.height = row.rows;
        image.header.bmiHeader.biHeight = row.rows;
        row.record.image = &image;
        recorder.clear();
        renderer.setScale(row.scale);
        renderer.DrawImage(&row.record);
        const std::string expected =
            row.expected != nullptr ? "image " + std::string(row.expected) + " from 0,0 100x50 of 100x50\n" : "";
        EXPECT_EQ(recorder.shapes(), expected);
    }
}

TEST_F(RendererTest, OpaqueImageIsDrawnFromItsOwnMemory) {
    DriverImage image(3, 2);
    HT_RasterImage_Record record{&image, 0, 0, 1, {}, 1};
    renderer.DrawImage(&record);
    EXPECT_EQ(recorder.calls().at(0).image.constBits(), image.pixels);
    QImage black(3, 2, QImage::Format_RGB32);
    black.fill(Qt::black);
    const HT_RasterImagePtr decoded = decode(imageBytes(black));
    record.image = decoded.get();
    renderer.DrawImage(&record);
    EXPECT_EQ(recorder.calls().at(1).image.constBits(), decoded->scanLinesBase());
}

TEST_F(RendererTest, UnalignedRowsAreReadByteByByte) {
    DriverImage image(3, 2);
    const uint32_t pixels[] = {1, 2, 3, 4, 5, 6};
    std::vector<unsigned char> memory(sizeof pixels + 1);
    std::memcpy(&memory[1], pixels, sizeof pixels);
    image.pixels = &memory[1];
    HT_RasterImage_Record record{&image, 0, 0, 1, {}, 1};
    renderer.DrawImage(&record);
    EXPECT_EQ(std::memcmp(recorder.calls().at(0).image.constBits(), pixels, sizeof pixels), 0);
}

TEST_F(RendererTest, OpacityMultipliesThatOfEachPixel) {
    DriverImage image(256, 1);
    for (uint32_t i = 0; i < 256; ++i) {
        image.memory[i] = i << 24 | 0x123456;
    }
    HT_RasterImage_Record record{&image, 0, 0, 1, {}, 1};
    int wrong = 0;
    for (unsigned opacity = 0; opacity < 256; ++opacity) {
        renderer.SetAlpha(static_cast<unsigned char>(opacity));
        recorder.clear();
        renderer.DrawImage(&record);
        const QImage drawn = recorder.calls().at(0).image;
        for (int i = 0; i < 256; ++i) {
            const double factor = static_cast<float>(opacity) / 255.0F;
            const auto expected = static_cast<uint32_t>(i * factor) << 24 | 0x123456;
            wrong += reinterpret_cast<const uint32_t*>(drawn.constBits())[i] != expected ? 1 : 0;
        }
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(image.memory[255], 0xFF123456) << "the driver's memory is only read";
}

TEST_F(RendererTest, NegativeFactorTurnsTheImage) {
    DriverImage image(1, 3);
    image.memory = {0xFF000001, 0xFF000002, 0x80000003};
    HT_RasterImage_Record record{&image, 0, 0, 1, {}, -1};
    const std::vector<uint32_t> expected[] = {{0x80000003, 0xFF000002, 0xFF000001},
                                              {0x40000003, 0x80000002, 0x80000001}};
    for (const auto& pixels : expected) {
        recorder.clear();
        renderer.DrawImage(&record);
        const auto* drawn = reinterpret_cast<const uint32_t*>(recorder.calls().at(0).image.constBits());
        EXPECT_EQ(std::vector<uint32_t>(drawn, drawn + 3), pixels);
        renderer.SetAlpha(128);
    }
}

HT_RasterImagePtr libraryImage(const std::vector<unsigned char>& bytes) {
    return RasterImageFactory::CreateFromGiRasterImage(Imgo::Image::LoadBytes(bytes.data(), bytes.size()).release());
}

TEST_F(RendererTest, ImagesOfOtherDepthsEndWithTheirBytes) {
    QImage white(40, 3, QImage::Format_RGB32);
    white.fill(Qt::white);
    const auto bytes = [&](QImage::Format format) {
        return imageBytes(white.convertToFormat(format));
    };
    const struct {
        int depth;
        HT_RasterImagePtr image;
    } rows[] = {{1, decode(bytes(QImage::Format_Mono))},
                {8, libraryImage(bytes(QImage::Format_Indexed8))},
                {24, libraryImage(bytes(QImage::Format_RGB32))}};
    for (const auto& row : rows) {
        ASSERT_EQ(row.image->colorDepth(), row.depth);
        HT_RasterImage_Record record{row.image.get(), 0, 0, 1, {}, 1};
        recorder.clear();
        QImage(40, 3, QImage::Format_ARGB32).fill(Qt::red); // leaves memory behind that is not zero
        renderer.DrawImage(&record);
        const QImage drawn = recorder.calls().at(0).image;
        ASSERT_EQ(drawn.size(), QSize(40, 3)) << row.depth;
        const uint32_t size = 3 * row.image->scanLineSize();
        EXPECT_EQ(std::memcmp(drawn.constBits(), row.image->scanLinesBase(), size), 0) << row.depth;
        for (uint32_t i = size; i < 40 * 3 * 4; ++i) {
            EXPECT_EQ(drawn.constBits()[i], 0) << row.depth;
        }
    }
}

TEST_F(RendererTest, NothingIsDrawnWithoutAnImage) {
    DriverImage unheaded(2, 2);
    unheaded.info = nullptr;
    DriverImage unfilled(2, 2);
    unfilled.pixels = nullptr;
    DriverImage flat(2, 2);
    flat.header.bmiHeader.biHeight = 0;
    DriverImage mirrored(2, 2);
    mirrored.header.bmiHeader.biWidth = -2;
    DriverImage endless(2, 2);
    endless.header.bmiHeader.biWidth = INT32_MAX;
    endless.header.bmiHeader.biHeight = INT32_MIN;
    for (HT_RasterImage* image : {static_cast<HT_RasterImage*>(nullptr), static_cast<HT_RasterImage*>(&unheaded),
                                  static_cast<HT_RasterImage*>(&unfilled), static_cast<HT_RasterImage*>(&flat),
                                  static_cast<HT_RasterImage*>(&mirrored), static_cast<HT_RasterImage*>(&endless)}) {
        for (const double factor : {1.0, -1.0}) {
            HT_RasterImage_Record record{image, 0, 0, 1, {}, factor};
            renderer.SetAlpha(factor > 0 ? 255 : 128);
            renderer.DrawImage(&record);
        }
    }
    renderer.DrawImage(nullptr);
    EXPECT_EQ(recorder.shapes(), "");
    OpenRenderer unattached;
    DriverImage image(2, 2);
    HT_RasterImage_Record record{&image, 0, 0, 1, {}, 1};
    unattached.DrawImage(&record);
}

} // namespace
