// SPDX-License-Identifier: BSD-3-Clause
#include "render/RendererFixture.h"

namespace {

const HT_Double_Point segment[] = {{0, 0}, {5, 0}};

void drawEverything(HT_Renderer& renderer) {
    renderer.SetFillMode(HT_PlotStyle::FillModeWinding);
    renderer.SetMergeControlType(HT_PlotStyle::MergeControlMerge);
    renderer.DrawPoint({1, 1});
    renderer.DrawPolyline(segment, 2);
    renderer.FillPolygon(segment, 2);
    renderer.DrawBezier(segment, 2);
    renderer.DrawArc({0, 0}, 5, 5, 0, 0, 1);
    renderer.DrawEllipse({0, 0}, 5, 5, 0);
}

TEST(DetachedRenderer, RecordsStyleAndDrawsNothing) {
    OpenRenderer renderer;
    EXPECT_FALSE(renderer.StartRender());
    renderer.SetColor(0x00332211);
    renderer.SetLineWeight(3.0);
    drawEverything(renderer);
    renderer.FinishRender();
    renderer.DetachDriver();
    EXPECT_EQ(renderer.color, QColor(0x11, 0x22, 0x33));
    EXPECT_EQ(renderer.penWidth, 3);
    EXPECT_FALSE(renderer.windingPending);
}

// The painter keeps the one state that the first attaching saved, whose pen width is 10.
TEST(DetachedRenderer, AttachingNullLetsThePainterGo) {
    PlotRecorder recorder;
    QPainter painter(&recorder);
    painter.setPen(QPen(Qt::black, 10));
    {
        QTRenderer renderer;
        renderer.AttachDriver(&painter, {0, 0}, false);
        renderer.SetLineWeight(30.0);
        renderer.AttachDriver(nullptr, {0, 0}, false);
        EXPECT_FALSE(renderer.StartRender());
        renderer.SetLineWeight(40.0);
        drawEverything(renderer);
        renderer.DetachDriver();
    }
    EXPECT_EQ(recorder.shapes(), "");
    EXPECT_EQ(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
    EXPECT_EQ(painter.pen().width(), 30);
    painter.restore();
    EXPECT_EQ(painter.pen().width(), 10);
}

TEST(DetachedRenderer, StyleSetBeforeAttachingAppliesAfterwards) {
    PlotRecorder recorder;
    QPainter painter(&recorder);
    QTRenderer renderer;
    renderer.SetLineWeight(7.0);
    renderer.SetLineType(HT_PlotStyle::LineTypeSolid, nullptr, 0);
    renderer.AttachDriver(&painter, {0, 0}, true);
    renderer.SetColor(0x0000FF);
    renderer.DrawPolyline(segment, 2);
    EXPECT_EQ(recorder.plot(), "polyline 0,0 5,0 | pen #ff0000 7 solid flat miter | brush #ff0000 solid\n");
}

TEST_F(RendererTest, StartRenderInstallsBlackUntilTheNextSetter) {
    renderer.SetColor(0x0000FF);
    EXPECT_TRUE(renderer.StartRender());
    renderer.DrawPolyline(segment, 2);
    renderer.SetLineWeight(2.0); // rebuilds the pen from the recorded style, which is red and still dotted
    renderer.DrawPolyline(segment, 2);
    EXPECT_EQ(recorder.plot(), golden(R"(
        polyline 0,0 5,0 | pen #000000 1 solid square bevel | brush #000000 solid
        polyline 0,0 5,0 | pen #ff0000 2 dot flat miter | brush #000000 solid
    )"));
    renderer.DetachDriver();
}

// Three states lie on the painter's stack below the renderer's; each carries its own pen width.
TEST(AttachedRenderer, RestoresOnceOnDetachAndOnceOnDestruction) {
    PlotRecorder recorder;
    QPainter painter(&recorder);
    painter.setPen(QPen(Qt::black, 10));
    painter.save();
    painter.setPen(QPen(Qt::black, 20));
    {
        QTRenderer renderer;
        renderer.AttachDriver(&painter, {0, 0}, false); // saves 20
        renderer.SetLineWeight(30.0);
        renderer.StartRender(); // saves 30
        renderer.SetLineWeight(40.0);
        renderer.FinishRender();
        EXPECT_EQ(painter.pen().width(), 40);
        renderer.DetachDriver();
        EXPECT_EQ(painter.pen().width(), 30);
    }
    EXPECT_EQ(painter.pen().width(), 20);
    painter.restore();
    EXPECT_EQ(painter.pen().width(), 10);
}

} // namespace
