// SPDX-License-Identifier: BSD-3-Clause

// A polyline clipped to a region, with the growth of the time in the polyline's points.
//
// Names read BM_ClipLine/ours/<line>/<contours>/<points>. "walk" is a line of short segments such as drawings have;
// each segment of "zigzag" crosses the whole region. "items_per_second" counts points and stays level where growth
// is linear; "pieces" is what comes out. BM_ClipTeeth/<lying or standing>/<points>: a walk along a region that is a row
// of as many teeth, which lies along the x axis or stands along the y axis.

#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "keldriver/KelDriver.h"

namespace {

constexpr double pageSize = 10000.0;

struct DeleteRgn {
    void operator()(HT_ClipRgn* rgn) const { KelDriver::HT_DeleteRgn(rgn); }
};
using RgnList = std::unique_ptr<HT_ClipRgn, DeleteRgn>;
using Line = std::vector<HT_Double_Point>;

/// Contours of 40 vertices all over the page, joined by exclusive or; together they cover about half of it.
RgnList contours(int count) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    const double radius = pageSize * 0.4 / std::sqrt(count);
    RgnList list;
    for (int i = 0; i < count; ++i) {
        const HT_Double_Point centre = count == 1 ? HT_Double_Point{pageSize / 2, pageSize / 2}
                                                  : HT_Double_Point{pageSize * share(random), pageSize * share(random)};
        Line outline;
        for (int k = 0; k < 40; ++k) {
            const double angle = k * 2.0 * M_PI / 40;
            const double reach = radius * (0.8 + 0.4 * share(random));
            outline.push_back({centre.x + reach * std::cos(angle), centre.y + reach * std::sin(angle)});
        }
        HT_ClipRgn* node = KelDriver::HT_CreatePolygonRgnData(outline.data(), static_cast<int>(outline.size()));
        node->next = list.release();
        list.reset(node);
    }
    return list;
}

/// Goes over the whole page whatever its number of points, in rows of short segments.
Line walk(size_t count) {
    std::mt19937_64 random(8);
    std::uniform_real_distribution<double> share(-1.0, 1.0);
    const double rows = std::ceil(std::sqrt(static_cast<double>(count) / 10.0));
    Line line;
    for (size_t i = 0; i < count; ++i) {
        const double place = rows * static_cast<double>(i) / static_cast<double>(count);
        const double row = std::floor(place);
        const double along = std::fmod(row, 2.0) == 0.0 ? place - row : 1.0 - (place - row);
        const double height = (row + 0.5 + 0.3 * share(random)) / rows;
        line.push_back({pageSize * along, pageSize * height});
    }
    return line;
}

Line zigzag(size_t count) {
    Line line;
    for (size_t i = 0; i < count; ++i) {
        const double height = pageSize * static_cast<double>(i) / static_cast<double>(count);
        line.push_back({i % 2 == 0 ? 0.0 : pageSize, height});
    }
    return line;
}

/// A band along the x axis whose upper side is a row of pointed teeth.
Line teeth(size_t vertices) {
    Line outline{{pageSize, 0}, {0, 0}};
    const double step = pageSize / static_cast<double>(vertices - 3);
    for (size_t i = 0; i + 2 < vertices; ++i) {
        outline.push_back({step * static_cast<double>(i), i % 2 == 0 ? 1000.0 : 2000.0});
    }
    return outline;
}

Line alongTeeth(size_t count) {
    std::mt19937_64 random(9);
    std::uniform_real_distribution<double> height(900.0, 2100.0);
    Line line;
    for (size_t i = 0; i < count; ++i) {
        line.push_back({pageSize * static_cast<double>(i) / static_cast<double>(count), height(random)});
    }
    return line;
}

Line exchanged(Line line) {
    for (HT_Double_Point& point : line) {
        std::swap(point.x, point.y);
    }
    return line;
}

struct LineKind {
    const char* name;
    Line (*make)(size_t count);
    size_t longest;
};

constexpr LineKind lineKinds[] = {{"walk", walk, 1000000}, {"zigzag", zigzag, 100000}};

void clipToRegion(benchmark::State& state, const HT_ClipRgn* region, const Line& line) {
    HT_PointerArray pieces(0, nullptr, HT_Free);
    int pieceCount = 0;
    for (auto _ : state) {
        pieceCount = HT_ClipLine(region, line.data(), static_cast<int>(line.size()), &pieces);
        pieces.Clear();
    }
    if (pieceCount == 0) {
        state.SkipWithError("no pieces: is the geometry module beside the library?");
    }
    state.counters["pieces"] = pieceCount;
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(line.size()));
}

void clipLine(benchmark::State& state, const LineKind& kind, int contourCount, size_t pointCount) {
    clipToRegion(state, contours(contourCount).get(), kind.make(pointCount));
}

void clipTeeth(benchmark::State& state, bool lying) {
    const auto count = static_cast<size_t>(state.range(0));
    const Line outline = lying ? teeth(count) : exchanged(teeth(count));
    const RgnList region(KelDriver::HT_CreatePolygonRgnData(outline.data(), static_cast<int>(count)));
    clipToRegion(state, region.get(), lying ? alongTeeth(count) : exchanged(alongTeeth(count)));
}

} // namespace

int main(int argc, char** argv) {
    for (const LineKind& kind : lineKinds) {
        for (const int contourCount : {1, 10, 100}) {
            for (size_t points = 1000; points <= kind.longest; points *= 10) {
                const std::string name = std::string("BM_ClipLine/ours/") + kind.name + '/' +
                                         std::to_string(contourCount) + '/' + std::to_string(points);
                benchmark::RegisterBenchmark(name.c_str(), clipLine, kind, contourCount, points)
                    ->Unit(benchmark::kMicrosecond);
            }
        }
    }
    for (const bool lying : {true, false}) {
        benchmark::RegisterBenchmark(lying ? "BM_ClipTeeth/lying" : "BM_ClipTeeth/standing", clipTeeth, lying)
            ->Arg(2000)
            ->Arg(20000)
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
