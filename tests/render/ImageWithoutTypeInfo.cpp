// SPDX-License-Identifier: BSD-3-Clause
#include "render/FakeImage.h"
#include "render/RendererFixture.h"

// Compiled without run-time type information, as drivers may be.

namespace {

class PlainImage : public FakeImage {
    using FakeImage::FakeImage;
};

TEST_F(RendererTest, AnImageWithoutTypeInformationIsDrawn) {
    PlainImage image(2, -1);
    HT_RasterImage_Record record{&image, 3, 4, 1, {}, 1};
    renderer.DrawImage(&record);
    EXPECT_EQ(recorder.shapes(), "image 3,4 2x2 from 0,0 2x1 of 2x1\n");
}

} // namespace
