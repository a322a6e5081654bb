// SPDX-License-Identifier: BSD-3-Clause
#include <QImage>

#include "render/RendererFixture.h"
#include "support/PlotText.h"

namespace {

TEST_F(RendererTest, FillStylesChooseTheBrush) {
    renderer.SetColor(0x0000FF);
    const std::pair<int, const char*> cases[] = {
        {0, "#ff0000 solid"},
        {1, "texture 8x8"},
        {2, "#ff0000 cross"},
        {3, "#ff0000 diagonal-cross"},
        {4, "#ff0000 horizontal"},
        {5, "#ff0000 forward-diagonal"},
        {6, "#ff0000 backward-diagonal"},
        {7, "texture 8x8"},
        {8, "#ff0000 vertical"},
        {9, "none"},
        {-1, "none"},
    };
    for (const auto& [style, brush] : cases) {
        renderer.SetFillStyle(fromDriver<HT_PlotStyle::FillStyle>(style));
        EXPECT_EQ(plotText::brush(painter.brush()), brush) << "style " << style;
    }
}

std::string pictureOf(const QImage& image) {
    std::string text;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            text += pixel == Qt::white ? '.' : pixel == Qt::red ? 'r' : pixel == Qt::blue ? 'b' : '?';
        }
        text += '\n';
    }
    return text;
}

const std::string redSquare = golden(R"(
    ........
    ........
    ..rrrr..
    ..r..r..
    ..r..r..
    ..rrrr..
    ........
    ........
)");

const std::string blueDot = golden(R"(
    bb......
    bb......
    ........
    ........
    ........
    ........
    ........
    ........
)");

TEST_F(RendererTest, TexturesKeepTheColourOfTheirFirstUse) {
    renderer.SetColor(0x0000FF);
    renderer.SetAlpha(10); // a texture is opaque all the same
    renderer.SetFillStyle(HT_PlotStyle::FillSquares);
    EXPECT_EQ(pictureOf(painter.brush().textureImage()), redSquare);
    renderer.SetColor(0xFF0000);
    EXPECT_EQ(pictureOf(painter.brush().textureImage()), redSquare);
    renderer.SetFillStyle(HT_PlotStyle::FillDots);
    EXPECT_EQ(pictureOf(painter.brush().textureImage()), blueDot);
    renderer.SetFillStyle(HT_PlotStyle::FillSquares);
    EXPECT_EQ(pictureOf(painter.brush().textureImage()), redSquare);
}

} // namespace
