// SPDX-License-Identifier: BSD-3-Clause
#include "render/RendererFixture.h"

namespace {

using namespace HT_PlotStyle;

const HT_Double_Point triangle[] = {{0, 0}, {10, 0}, {0, 10}};
const HT_Double_Point closedTriangle[] = {{20, 0}, {30, 0}, {20, 10}, {20, 0}};

class FillModeTest : public RendererTest {
protected:
    FillModeTest() {
        renderer.SetLineType(LineTypeSolid, nullptr, 0);
        renderer.SetLineWeight(1.0);
        renderer.SetColor(0x0000FF);
    }
};

TEST_F(FillModeTest, WindingDrawsAllPolygonsAsOnePathWhenLeft) {
    renderer.SetFillMode(FillModeWinding);
    renderer.FillPolygon(triangle, 3);
    renderer.SetFillMode(FillModeWinding);
    renderer.FillPolygon(closedTriangle, 4);
    renderer.SetFillMode(fromDriver<FillMode>(2));
    EXPECT_EQ(recorder.shapes(), "");
    renderer.SetColor(0xFF0000); // the style of the end counts
    renderer.SetFillMode(FillModeAlternate);
    EXPECT_EQ(recorder.plot(), golden(R"(
        path M0,0 L10,0 L0,10 L0,0 M20,0 L30,0 L20,10 L20,0 winding | pen #0000ff 1 solid flat miter | brush #0000ff solid
        path M0,0 L10,0 L0,10 L0,0 M20,0 L30,0 L20,10 L20,0 winding | pen none | brush #0000ff solid
    )"));
    EXPECT_FALSE(renderer.windingPending);

    recorder.clear();
    renderer.SetFillMode(FillModeAlternate);
    renderer.FillPolygon(triangle, 3);
    EXPECT_EQ(recorder.plot(), "path M0,0 L10,0 L0,10 | pen none | brush #0000ff solid\n");
}

TEST_F(FillModeTest, LeavingAnEmptyGatheringDrawsNothing) {
    renderer.SetFillMode(FillModeAlternate);
    renderer.SetFillMode(FillModeWinding);
    renderer.SetFillMode(FillModeAlternate);
    EXPECT_FALSE(renderer.windingPending);
    EXPECT_TRUE(renderer.windingPath.isEmpty());
    EXPECT_EQ(renderer.windingPath.fillRule(), Qt::OddEvenFill);
    EXPECT_EQ(recorder.shapes(), "");
}

TEST_F(FillModeTest, ShrunkenPolygonsAreDrawnEvenWhileGathering) {
    const HT_Double_Point line[] = {{0, 0}, {10, 0}, {10.2, 0.1}};
    const HT_Double_Point dot[] = {{3.9, 3.9}, {4.1, 4.1}, {4.0, 4.0}};
    for (const FillMode mode : {FillModeAlternate, FillModeWinding}) {
        renderer.SetFillMode(mode);
        renderer.SetColor(0x0000FF); // lets the point count as new
        recorder.clear();
        renderer.FillPolygon(line, 3);
        renderer.FillPolygon(dot, 3);
        EXPECT_EQ(recorder.shapes(), "polyline 0,0 10,0\npoints 4,4\n") << "mode " << mode;
    }
}

} // namespace
