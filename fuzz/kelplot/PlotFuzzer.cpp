// SPDX-License-Identifier: GPL-2.0-or-later

// Reads any bytes as a drawing and plots what it holds on a small page: model space, and each of its sheets. The whole
// input is the file.

#include <QImage>
#include <QPainter>
#include <cstdint>
#include <memory>
#include <string_view>

#include "Application.h"
#include "MemoryFile.h"
#include "Require.h"
#include "keldriver/Renderer.h"
#include "page/PageSetup.h"
#include "plot/DrawingPlot.h"
#include "plot/annotation/AnnotationBlocks.h"
#include "reader/DxfReader.h"

using namespace kelplot;

namespace {

constexpr int side = 200; // pixels

void plot(const Drawing& drawing, const std::vector<Entity>& entities) {
    QImage page(side, side, QImage::Format_RGB32);
    QPainter painter(&page);
    const std::unique_ptr<HT_Renderer, void (*)(HT_Renderer*)> renderer(HT_RendererFactory::CreateRenderer(4, 0),
                                                                        HT_RendererFactory::DestroyRenderer);
    renderer->AttachDriver(&painter, {side, side}, false);
    renderer->StartRender();
    DirectPainter direct(painter);
    const DrawingPlot plot(drawing, {});
    ExtentsReport report;
    const PageLayout layout = layOutPage(plot.extents(entities, &report), drawing.millimetresPerUnit, {});
    DeviceGrid grid;
    grid.unitsPerMillimetre = side / 297.0;
    plot.draw(entities, plotTargetFor(layout, grid), {*renderer, &direct}, {});
    renderer->FinishRender();
    renderer->DetachDriver();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    needApplication();
    const MemoryFile file;
    file.write({reinterpret_cast<const char*>(data), size});
    try {
        Drawing drawing = DxfReader().read(file.path(), {});
        buildAnnotations(drawing, {});
        plot(drawing, drawing.modelSpace);
        plot(drawing, drawing.paperSpace);
        for (const Layout& layout : drawing.layouts) {
            require(layout.block == noBlock || layout.block < drawing.blocks.size());
            if (layout.block != noBlock) {
                plot(drawing, drawing.blocks[layout.block].entities);
            }
        }
    } catch (const ReadError& error) {
        require(error.reason == ReadError::Reason::notADrawing);
    }
    return 0;
}
