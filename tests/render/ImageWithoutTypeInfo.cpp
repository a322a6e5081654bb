// SPDX-License-Identifier: BSD-3-Clause
#include "render/FakeImage.h"
#include "render/RendererFixture.h"

// Compiled without run-time type information, as drivers may be.

namespace {

class PlainImage : public FakeImage {};

TEST_F(RendererTest, AnImageWithoutTypeInformationIsDrawn) {
    const uint32_t memory[] = {0xFF112233, 0xFF445566};
    tagBITMAPINFO info{};
    info.bmiHeader.biWidth = 2;
    info.bmiHeader.biHeight = -1;
    PlainImage image;
    image.width = 2;
    image.height = 1;
    image.pixels = reinterpret_cast<const unsigned char*>(memory);
    image.info = &info;
    HT_RasterImage_Record record{&image, 3, 4, 1, {}, 1};
    renderer.DrawImage(&record);
    EXPECT_EQ(recorder.shapes(), "image 3,4 2x2 from 0,0 2x1 of 2x1\n");
}

} // namespace
