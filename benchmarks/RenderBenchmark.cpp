// SPDX-License-Identifier: BSD-3-Clause

// The same picture through the renderer and painted by hand, in one run.
//
// Names read BM_<picture>/<side>/<device>/<size>. "ours" is the renderer; "hand" does the same snapping and calls
// QPainter itself. Of lists of contours as a clip, "united" joins them by Qt's operations on paths, as the renderer
// does, and "winding" has one path of all contours that is not evaluated. "counting" is a device that only counts, so
// the ratio is that of the code above the paint engine; "raster" is a QImage, as in a real plot, and "large" one of
// 4000 by 4000 pixels. The counter "allocs" is the number of heap allocations a call, Qt's own included; "result" is
// the number of points or pixels that three calls paint, the same on each side.

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include "AllocationCount.h"
#include "CountingDevice.h"
#include "GuiBenchmarks.h"
#include "HandPainter.h"
#include "RenderPictures.h"
#include "keldriver/KelDriver.h"

namespace {

constexpr double plotScale = 1.25;

/// A page with both ways to draw on it; the pen that the renderer installs serves both.
struct Page {
    Page(std::unique_ptr<QPaintDevice> paper, const Picture& picture)
        : device(std::move(paper)), painter(device.get()) {
        renderer.reset(HT_RendererFactory::CreateRenderer(4, 0));
        renderer->AttachDriver(&painter, {device->width(), device->height()}, false);
        renderer->StartRender();
        renderer->setScale(plotScale);
        renderer->SetLineType(HT_PlotStyle::LineTypeSolid, nullptr, 0);
        renderer->SetLineEndStyle(HT_PlotStyle::LineEndFlat);
        renderer->SetLineJoinStyle(HT_PlotStyle::LineJoinMiter);
        renderer->SetLineWeight(1.0);
        renderer->SetColor(0x0000FF);
        if (picture.prepare) {
            picture.prepare(*renderer);
        }
    }

    struct Finish {
        void operator()(HT_Renderer* finished) const {
            finished->FinishRender();
            finished->DetachDriver();
            HT_RendererFactory::DestroyRenderer(finished);
        }
    };

    std::unique_ptr<QPaintDevice> device;
    QPainter painter;
    HandPainter hand{painter, plotScale};
    std::unique_ptr<HT_Renderer, Finish> renderer;
};

struct DeviceKind {
    const char* name;
    std::unique_ptr<QPaintDevice> (*make)();
    double (*painted)(const QPaintDevice& device);
};

std::unique_ptr<QPaintDevice> makeCounting() {
    return std::make_unique<CountingDevice>();
}

double paintedElements(const QPaintDevice& device) {
    return static_cast<double>(static_cast<const CountingDevice&>(device).elements());
}

template <int side>
std::unique_ptr<QPaintDevice> makeRaster() {
    auto image = std::make_unique<QImage>(side, side, QImage::Format_ARGB32_Premultiplied);
    image->fill(Qt::white);
    return image;
}

double paintedPixels(const QPaintDevice& device) {
    const auto& image = static_cast<const QImage&>(device);
    double painted = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        painted += static_cast<double>(std::count_if(row, row + image.width(), [](QRgb p) { return p != ~0U; }));
    }
    return painted;
}

constexpr DeviceKind counting = {"counting", makeCounting, paintedElements};
constexpr DeviceKind raster = {"raster", makeRaster<1000>, paintedPixels};
constexpr DeviceKind large = {"large", makeRaster<4000>, paintedPixels};

/// Draws a picture in one way on a page.
using Way = std::function<void(Page&, int call)>;

double allocationsPerCall(Page& page, const Way& draw) {
    constexpr int calls = 64;
    draw(page, 0); // whatever is built at its first use
    const int64_t before = allocationCount();
    for (int call = 1; call <= calls; ++call) {
        draw(page, call);
    }
    return static_cast<double>(allocationCount() - before) / calls;
}

void measure(benchmark::State& state, const Picture& picture, const DeviceKind& kind, const Way& draw) {
    Page first(kind.make(), picture);
    for (int call = 1; call <= 3; ++call) {
        draw(first, call);
    }
    state.counters["result"] = kind.painted(*first.device);

    Page page(kind.make(), picture);
    state.counters["allocs"] = allocationsPerCall(page, draw);
    int call = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        draw(page, ++call);
    }
}

void add(const std::string& side, const Picture& picture, const DeviceKind& kind, const Way& draw) {
    const std::string name = "BM_" + picture.name + "/" + side + "/" + kind.name + "/" + picture.size;
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) { measure(state, picture, kind, draw); });
}

void addAll(const Picture& picture, const DeviceKind& kind) {
    add("ours", picture, kind, [ours = picture.ours](Page& page, int call) { ours(*page.renderer, call); });
    for (const HandWay& way : picture.hands) {
        add(way.side, picture, kind, [draw = way.draw](Page& page, int call) { draw(page.hand, call); });
    }
}

void registerAll() {
    for (const Picture& picture : pagePictures()) {
        addAll(picture, counting);
        addAll(picture, raster);
    }
    for (const Picture& picture : longLinePictures()) {
        addAll(picture, large);
    }
}

} // namespace

int main(int argc, char** argv) {
    return runGuiBenchmarks(argc, argv, registerAll);
}
