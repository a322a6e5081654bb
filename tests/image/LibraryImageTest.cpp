// SPDX-License-Identifier: BSD-3-Clause

// An image library of the application's own takes the place of the open one in this program.

#include <gtest/gtest.h>

#include "image/ImageAnswers.h"
#include "imgo.h"

extern std::string standInCalls;

namespace {

Imgo::Image* newLibraryImage(size_t size = 0) {
    standInCalls.clear();
    return Imgo::Image::LoadBytes(nullptr, size).release();
}

TEST(LibraryImage, IsDestroyedOnceByItsOwner) {
    RasterImageFactory::CreateFromGiRasterImage(newLibraryImage()).reset();
    EXPECT_EQ(standInCalls, "destroyed ");
    RasterImageFactory::CreateFromGiRasterImage(newLibraryImage()).release()->destroy();
    EXPECT_EQ(standInCalls, "destroyed ");
}

TEST(LibraryImage, AnswersWithoutADescription) {
    HT_RasterImageImpl none(nullptr);
    HT_RasterImageImpl undescribed(newLibraryImage(1));
    for (HT_RasterImageImpl* image : {&none, &undescribed}) {
        EXPECT_EQ(answersOf(*image), "0 x 0 x -1, resolution -1 x -1, palette 0 no 5 0, alpha 0 -1, format 15, "
                                     "rows of 0 no, header no");
        image->addAlpha(3);
        EXPECT_EQ(standInCalls.find("alpha"), std::string::npos);
    }
}

TEST(LibraryImage, AnswersFromItsDescription) {
    Imgo::Image* const libraryImage = newLibraryImage();
    HT_RasterImageImpl image(libraryImage);
    EXPECT_EQ(answersOf(image), "6 x -4 x 32, resolution 118 x 59, palette 1 yes 2 9, alpha 1 42, format 15, "
                                "rows of 8 yes, header yes");
    const Imgo::DibInfo* const description = libraryImage->GetDibInfo(true);
    unsigned int count = 0;
    EXPECT_EQ(image.paletteData(count), description->info->bmiColors);
    EXPECT_TRUE(image.scanLinesBase() == description->pixels && image.getBitmapInfo() == description->info);
    EXPECT_EQ(image.imageSource(), HT_RasterImage::SourceType(-1));
    EXPECT_EQ(image.saveAs(L"never.png"), 4294967295U);
    standInCalls.clear();
    void* data = nullptr;
    unsigned long size = 0;
    EXPECT_EQ(image.convertTo(L"PNG", &data, &size, 50), 0U);
    EXPECT_EQ(standInCalls, "described ");
    image.addAlpha(99);
    EXPECT_EQ(standInCalls, "described described alpha 99 ");
}

} // namespace
