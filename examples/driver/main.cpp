// SPDX-License-Identifier: BSD-3-Clause

// The smallest whole driver: lends a painter to the renderer, plots a few primitives, saves the page.

#include <keldriver/KelDriver.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstdio>
#include <memory>

namespace {

struct RendererRelease {
    void operator()(HT_Renderer* renderer) const { HT_RendererFactory::DestroyRenderer(renderer); }
};

void plot(HT_Renderer& renderer) {
    renderer.SetLineType(HT_PlotStyle::LineTypeSolid, nullptr, 0);
    renderer.SetLineWeight(5.0);
    renderer.SetColor(0x00804000); // red in the lowest byte: a blue ink
    const HT_Double_Point frame[] = {{20, 20}, {380, 20}, {380, 280}, {20, 280}, {20, 20}};
    renderer.DrawPolyline(frame, 5);
    renderer.DrawEllipse({200, 150}, 120, 60, 0.5);

    renderer.SetFillStyle(HT_PlotStyle::FillDiagCross);
    const HT_Double_Point triangle[] = {{200, 110}, {240, 180}, {160, 180}};
    renderer.FillPolygon(triangle, 3);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) { // said before Qt looks for a display
        std::fprintf(stderr, "usage: example_driver PAGE.png\n");
        return 1;
    }
    const QGuiApplication application(argc, argv);

    QImage page(400, 300, QImage::Format_RGB32);
    page.fill(Qt::white);
    {
        QPainter painter(&page); // lives longer than the renderer, which gives its state back at the end
        const std::unique_ptr<HT_Renderer, RendererRelease> renderer(HT_RendererFactory::CreateRenderer(4, 0));
        renderer->AttachDriver(&painter, {page.width(), page.height()}, false);
        if (!renderer->StartRender()) {
            return 1;
        }
        plot(*renderer);
        renderer->FinishRender();
        renderer->DetachDriver();
    }
    return page.save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
}
