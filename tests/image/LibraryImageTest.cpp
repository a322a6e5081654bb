// SPDX-License-Identifier: BSD-3-Clause

// An image library of the application's own takes the place of the open one in this program.

#include <new>
#include <string>

#include <gtest/gtest.h>

#include "image/ImageAnswers.h"
#include "imgo.h"

namespace {

const Imgo::DibInfo* description = nullptr;
std::string calls;
int descriptionsAsked = 0;

} // namespace

struct Imgo::Image::Data {};

Imgo::Image::Image(std::unique_ptr<Data> content) : data(std::move(content)) {
}

Imgo::Image::~Image() {
    calls += "destroyed ";
}

std::unique_ptr<Imgo::Image> Imgo::Image::LoadBytes(const void*, size_t) {
    void* storage = ::operator new(1000); // larger than the declared class, as an application's own may be
    return std::unique_ptr<Image>(new (storage) Image(nullptr));
}

// NOLINTBEGIN(readability-convert-member-functions-to-static): the image library's header declares them
const Imgo::DibInfo* Imgo::Image::GetDibInfo(bool make) {
    ++descriptionsAsked;
    return make ? description : nullptr;
}

int Imgo::Image::GetDibTransparency(bool make) {
    return make ? 42 : 0;
}

void Imgo::Image::AddAlphaOnCvtBmp(int alpha) {
    calls += "alpha " + std::to_string(alpha) + " ";
}
// NOLINTEND(readability-convert-member-functions-to-static)

namespace {

Imgo::Image* newLibraryImage() {
    calls.clear();
    return Imgo::Image::LoadBytes(nullptr, 0).release();
}

TEST(LibraryImage, IsDestroyedOnceByItsOwner) {
    description = nullptr;
    RasterImageFactory::CreateFromGiRasterImage(newLibraryImage()).reset();
    EXPECT_EQ(calls, "destroyed ");
    RasterImageFactory::CreateFromGiRasterImage(newLibraryImage()).release()->destroy();
    EXPECT_EQ(calls, "destroyed ");
}

TEST(LibraryImage, AnswersWithoutADescription) {
    description = nullptr;
    HT_RasterImageImpl none(nullptr);
    HT_RasterImageImpl undescribed(newLibraryImage());
    for (HT_RasterImageImpl* image : {&none, &undescribed}) {
        EXPECT_EQ(answersOf(*image), "0 x 0 x -1, resolution -1 x -1, palette 0 no 5 0, alpha 0 -1, format 15, "
                                     "rows of 0 no, header no");
        image->addAlpha(3);
        EXPECT_EQ(calls, "");
    }
}

TEST(LibraryImage, AnswersFromItsDescription) {
    struct {
        tagBITMAPINFOHEADER header{40, 6, -4, 1, 8, 0, 0, 11800, 5900, 9, 0};
        tagRGBQUAD colors[2]{};
    } dib;
    const unsigned char pixels[32]{};
    const Imgo::DibInfo info{reinterpret_cast<const tagBITMAPINFO*>(&dib), 2, pixels, 8, 32};
    description = &info;
    HT_RasterImageImpl image(newLibraryImage());
    EXPECT_EQ(answersOf(image), "6 x -4 x 32, resolution 118 x 59, palette 1 yes 2 9, alpha 1 42, format 15, "
                                "rows of 8 yes, header yes");
    unsigned int count = 0;
    EXPECT_EQ(image.paletteData(count), dib.colors);
    EXPECT_TRUE(image.scanLinesBase() == pixels && image.getBitmapInfo() == info.info);
    EXPECT_EQ(image.imageSource(), HT_RasterImage::SourceType(-1));
    EXPECT_EQ(image.saveAs(L"never.png"), 4294967295U);
    descriptionsAsked = 0;
    void* data = nullptr;
    unsigned long size = 0;
    EXPECT_EQ(image.convertTo(L"PNG", &data, &size, 50), 0U);
    EXPECT_EQ(descriptionsAsked, 1);
    image.addAlpha(99);
    EXPECT_EQ(calls, "alpha 99 ");
}

} // namespace
