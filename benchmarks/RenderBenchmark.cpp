// SPDX-License-Identifier: BSD-3-Clause

// The same picture through the renderer and painted by hand, in one run.
//
// Names read BM_<picture>/<ours or hand>/<device>/<size>. "counting" is a device that only counts, so the
// ratio is that of the code above the paint engine; "raster" is a QImage, as in a real plot. The counter
// "allocs" is the number of heap allocations a call, Qt's own included.

#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include "AllocationCount.h"
#include "CountingDevice.h"
#include "GuiBenchmarks.h"
#include "HandPainter.h"
#include "keldriver/KelDriver.h"

namespace {

using Points = std::vector<HT_Double_Point>;

constexpr double plotScale = 1.25;
constexpr int pageSize = 1000;

/// A page with both ways to draw on it.
struct Page {
    explicit Page(std::unique_ptr<QPaintDevice> paper) : device(std::move(paper)), painter(device.get()) {
        renderer.reset(HT_RendererFactory::CreateRenderer(4, 0));
        renderer->AttachDriver(&painter, {pageSize, pageSize}, false);
        renderer->StartRender();
        renderer->setScale(plotScale);
        renderer->SetLineType(HT_PlotStyle::LineTypeSolid, nullptr, 0);
        renderer->SetLineEndStyle(HT_PlotStyle::LineEndFlat);
        renderer->SetLineJoinStyle(HT_PlotStyle::LineJoinMiter);
        renderer->SetLineWeight(1.0);
        renderer->SetColor(0x0000FF);
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
};

std::unique_ptr<QPaintDevice> makeCounting() {
    return std::make_unique<CountingDevice>();
}

std::unique_ptr<QPaintDevice> makeRaster() {
    auto image = std::make_unique<QImage>(pageSize, pageSize, QImage::Format_ARGB32_Premultiplied);
    image->fill(Qt::white);
    return image;
}

constexpr DeviceKind deviceKinds[] = {{"counting", makeCounting}, {"raster", makeRaster}};

/// A picture: what one call draws by either way. `call` counts up, for what must differ from call to call.
struct Picture {
    std::string name;
    std::string size;
    std::function<void(HT_Renderer&, int call)> ours;
    std::function<void(HandPainter&, int call)> hand;
};

// A spiral: no two neighbours fall on one pixel, and every point lies on the page.
Points spiral(int count) {
    Points points;
    for (int i = 0; i < count; ++i) {
        const double angle = 2.4 * i; // radians; neighbours lie far apart, as in a hatch
        const double radius = 50.0 + 300.0 * i / count;
        points.push_back({400.0 + radius * std::cos(angle), 400.0 + radius * std::sin(angle)});
    }
    return points;
}

// A rounded outline: neighbours lie close together, as along a flattened curve.
Points outline(int count) {
    Points points;
    for (int i = 0; i < count; ++i) {
        const double angle = 6.283185307179586 * i / count;
        points.push_back({400.0 + 380.0 * std::cos(angle), 400.0 + 380.0 * std::sin(angle)});
    }
    return points;
}

Picture polylinePicture(int count) {
    const auto points = std::make_shared<Points>(count == 2 ? Points{{10, 10}, {60, 40}} : outline(count));
    return {"Polyline", std::to_string(count),
            [points, count](HT_Renderer& renderer, int) { renderer.DrawPolyline(points->data(), count); },
            [points, count](HandPainter& hand, int) {
                hand.polyline(points->data(), count);
            }};
}

Picture polygonPicture(int count) {
    const auto points = std::make_shared<Points>(outline(count));
    return {"Polygon", std::to_string(count),
            [points, count](HT_Renderer& renderer, int) { renderer.FillPolygon(points->data(), count); },
            [points, count](HandPainter& hand, int) {
                hand.polygon(points->data(), count);
            }};
}

Picture pointPicture() {
    const auto points = std::make_shared<Points>(spiral(512));
    return {"Points", "512",
            [points](HT_Renderer& renderer, int) {
                for (const HT_Double_Point& point : *points) {
                    renderer.DrawPoint(point);
                }
            },
            [points](HandPainter& hand, int) {
                for (const HT_Double_Point& point : *points) {
                    hand.point(point);
                }
            }};
}

Picture arcPicture() {
    return {"Arc", "1",
            [](HT_Renderer& renderer, int) {
                renderer.DrawArc({400, 400}, 200, 100, 0.5, 0.25, 3.5);
            },
            [](HandPainter& hand, int) {
                hand.arc({400, 400}, 200, 100, 0.5, 0.25, 3.5);
            }};
}

// Colour, then weight, then a short line, as at each new entity of a drawing.
Picture stylePicture() {
    const auto points = std::make_shared<Points>(Points{{10, 10}, {60, 40}});
    return {"Style", "1",
            [points](HT_Renderer& renderer, int call) {
                renderer.SetColor(static_cast<HT_Color>(call) & 0xFFU);
                renderer.SetLineWeight(1.0 + call % 3);
                renderer.DrawPolyline(points->data(), 2);
            },
            [points](HandPainter& hand, int call) {
                hand.ink(QColor(call & 0xFF, 0, 0));
                hand.width(1 + call % 3);
                hand.polyline(points->data(), 2);
            }};
}

template <typename Draw>
double allocationsPerCall(Draw draw) {
    constexpr int calls = 64;
    draw(0); // whatever is built at its first use
    const int64_t before = allocationCount();
    for (int call = 1; call <= calls; ++call) {
        draw(call);
    }
    return static_cast<double>(allocationCount() - before) / calls;
}

template <typename Draw>
void measure(benchmark::State& state, Draw draw) {
    const double allocations = allocationsPerCall(draw);
    int call = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        draw(++call);
    }
    state.counters["allocs"] = allocations;
}

void registerPair(const Picture& picture, const DeviceKind& kind) {
    const auto nameFor = [&](const char* way) {
        return "BM_" + picture.name + "/" + way + "/" + kind.name + "/" + picture.size;
    };
    const auto make = kind.make;
    benchmark::RegisterBenchmark(nameFor("ours").c_str(), [picture, make](benchmark::State& state) {
        const Page page(make());
        measure(state, [&](int call) { picture.ours(*page.renderer, call); });
    });
    benchmark::RegisterBenchmark(nameFor("hand").c_str(), [picture, make](benchmark::State& state) {
        Page page(make());
        measure(state, [&](int call) { picture.hand(page.hand, call); });
    });
}

void registerAll() {
    std::vector<Picture> pictures;
    for (const int count : {2, 20, 2000, 20000}) {
        pictures.push_back(polylinePicture(count));
    }
    for (const int count : {4, 20, 2000}) {
        pictures.push_back(polygonPicture(count));
    }
    pictures.push_back(pointPicture());
    pictures.push_back(arcPicture());
    pictures.push_back(stylePicture());
    for (const Picture& picture : pictures) {
        for (const DeviceKind& kind : deviceKinds) {
            registerPair(picture, kind);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    return runGuiBenchmarks(argc, argv, registerAll);
}
