// SPDX-License-Identifier: BSD-3-Clause

// Boolean operations on regions.
//
// BM_Clip: `gpc_polygon_clip` ("ours") against the bare Clipper engine on paths that are on the grid already
// ("hand"). BM_Combine: `CVornRgn::CombineRgn` against a bare `gpc_polygon_clip` of the same polygons.
// BM_Evaluate: a list of contours; "items_per_second" counts contours. BM_Circles: a list of two circles that are
// united, against a bare union of the two. BM_Teeth: a bar that cuts a band of teeth, which lies along the x axis or
// stands along the y axis. BM_CombineTeeth: the same by `CVornRgn::CombineRgn` against a bare `gpc_polygon_clip`: the
// result has half as many contours as the band has vertices. BM_Brackets: an expression nested to a depth;
// "bytes_a_level" stays level where a bracket costs constant memory.

#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <clipper.hpp>

#include "gpc.h"
#include "keldriver/KelDriver.h"

namespace {

constexpr double gridScale = 1099511627776.0; // 2^40, for coordinates up to 2^10: 50 bits

using Outline = std::vector<HT_Double_Point>;

struct DeleteRgn {
    void operator()(HT_ClipRgn* rgn) const { KelDriver::HT_DeleteRgn(rgn); }
};
using RgnList = std::unique_ptr<HT_ClipRgn, DeleteRgn>;

/// A star-shaped outline with uneven rays; the more vertices, the smoother, as outlines of drawings are. Long
/// zigzags cost the engine below the square of their length.
Outline star(size_t vertices, HT_Double_Point centre, double radius, unsigned seed) {
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> share(1.0 - std::min(0.3, 30.0 / static_cast<double>(vertices)), 1.0);
    Outline outline;
    for (size_t i = 0; i < vertices; ++i) {
        const double angle = 2.0 * M_PI * static_cast<double>(i) / static_cast<double>(vertices);
        const double reach = radius * share(random);
        outline.push_back({centre.x + reach * std::cos(angle), centre.y + reach * std::sin(angle)});
    }
    return outline;
}

Outline circle(size_t corners, HT_Double_Point centre, double radius) {
    Outline outline;
    for (size_t i = 0; i < corners; ++i) {
        const double angle = 2.0 * M_PI * static_cast<double>(i) / static_cast<double>(corners);
        outline.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return outline;
}

Outline exchanged(Outline outline) {
    for (HT_Double_Point& point : outline) {
        std::swap(point.x, point.y);
    }
    return outline;
}

/// A band along the x axis whose upper side is a row of pointed teeth.
Outline teeth(size_t vertices) {
    Outline outline{{900, -100}, {-900, -100}};
    const double step = 1800.0 / static_cast<double>(vertices - 3);
    for (size_t i = 0; i + 2 < vertices; ++i) {
        outline.push_back({-900.0 + step * static_cast<double>(i), i % 2 == 0 ? 0.0 : 100.0});
    }
    return outline;
}

/// A polygon of one contour over borrowed vertices.
struct OneContour {
    explicit OneContour(const Outline& outline) {
        for (const HT_Double_Point& point : outline) {
            vertices.push_back({point.x, point.y});
        }
        list = {static_cast<int>(vertices.size()), vertices.data()};
    }
    gpc_polygon polygon() { return {1, &hole, &list}; }

    std::vector<gpc_vertex> vertices;
    gpc_vertex_list list{};
    int hole = 0;
};

ClipperLib::Path gridPath(const Outline& outline) {
    ClipperLib::Path path;
    for (const HT_Double_Point& point : outline) {
        path.push_back({std::llrint(point.x * gridScale), std::llrint(point.y * gridScale)});
    }
    return path;
}

void clipOutlines(benchmark::State& state, gpc_op op, const Outline& first, const Outline& second) {
    OneContour subject(first);
    OneContour clip(second);
    for (auto _ : state) {
        gpc_polygon a = subject.polygon();
        gpc_polygon b = clip.polygon();
        gpc_polygon result{};
        gpc_polygon_clip(op, &a, &b, &result);
        benchmark::DoNotOptimize(result.num_contours);
        gpc_free_polygon(&result);
    }
}

void clipOurs(benchmark::State& state, gpc_op op) {
    const auto count = static_cast<size_t>(state.range(0));
    clipOutlines(state, op, star(count, {-100, 0}, 900, 1), star(count, {100, 50}, 900, 2));
}

void clipByHand(benchmark::State& state, ClipperLib::ClipType type) {
    const auto count = static_cast<size_t>(state.range(0));
    const ClipperLib::Paths subject{gridPath(star(count, {-100, 0}, 900, 1))};
    const ClipperLib::Paths clip{gridPath(star(count, {100, 50}, 900, 2))};
    for (auto _ : state) {
        ClipperLib::Clipper clipper;
        clipper.AddPaths(subject, ClipperLib::ptSubject, true);
        clipper.AddPaths(clip, ClipperLib::ptClip, true);
        ClipperLib::Paths result;
        clipper.Execute(type, result, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
        benchmark::DoNotOptimize(result.size());
    }
}

void combineOutlines(benchmark::State& state, int win32Operation, const Outline& first, const Outline& second) {
    CVornRgn a;
    CVornRgn b;
    a.CreatePolygonRgn(first.data(), static_cast<int>(first.size()), 1);
    b.CreatePolygonRgn(second.data(), static_cast<int>(second.size()), 1);
    CVornRgn result;
    for (auto _ : state) {
        benchmark::DoNotOptimize(result.CombineRgn(&a, &b, win32Operation));
    }
}

void combineOurs(benchmark::State& state) {
    const auto count = static_cast<size_t>(state.range(0));
    combineOutlines(state, 2, star(count, {-100, 0}, 900, 1), star(count, {100, 50}, 900, 2));
}

RgnList contours(int count) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> place(-900.0, 900.0);
    RgnList list;
    for (int i = 0; i < count; ++i) {
        const Outline outline = star(12, {place(random), place(random)}, 100, static_cast<unsigned>(i));
        HT_ClipRgn* node = KelDriver::HT_CreatePolygonRgnData(outline.data(), 12);
        node->mode = i % 3 == 1 ? HT_RGN_DIFF : HT_RGN_OR;
        node->next = list.release();
        list.reset(node);
    }
    return list;
}

void evaluate(benchmark::State& state) {
    const RgnList list = contours(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const RgnList copy(KelDriver::HT_CloneRgnData(list.get()));
        benchmark::DoNotOptimize(PolyAlgoOperator::ClipRgnOperator(copy.get()));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void circlesInAList(benchmark::State& state) {
    const auto corners = static_cast<size_t>(state.range(0));
    const Outline left = circle(corners, {-300, 0}, 600);
    const Outline right = circle(corners, {300, 0}, 600);
    RgnList list(KelDriver::HT_CreatePolygonRgnData(left.data(), static_cast<int>(corners)));
    list->next = KelDriver::HT_CreatePolygonRgnData(right.data(), static_cast<int>(corners));
    list->next->mode = HT_RGN_OR;
    for (auto _ : state) {
        const RgnList copy(KelDriver::HT_CloneRgnData(list.get()));
        benchmark::DoNotOptimize(PolyAlgoOperator::ClipRgnOperator(copy.get()));
    }
}

void circlesByHand(benchmark::State& state) {
    const auto corners = static_cast<size_t>(state.range(0));
    clipOutlines(state, GPC_UNION, circle(corners, {-300, 0}, 600), circle(corners, {300, 0}, 600));
}

const Outline bar{{-950, 30}, {950, 30}, {950, 60}, {-950, 60}};

void cutTeeth(benchmark::State& state, bool lying) {
    const Outline band = teeth(static_cast<size_t>(state.range(0)));
    clipOutlines(state, GPC_DIFF, lying ? band : exchanged(band), lying ? bar : exchanged(bar));
}

void brackets(benchmark::State& state) {
    const int depth = static_cast<int>(state.range(0));
    const Outline outline = star(12, {0, 0}, 100, 1);
    CVornRgn rgn;
    for (int i = 0; i < depth; ++i) {
        HT_ClipRgn* node = KelDriver::HT_CreatePolygonRgnData(outline.data(), 12);
        node->mode = HT_RGN_OR | 0x100; // opens 256 brackets
        node->next = rgn.m_pClipRgn;
        rgn.m_pClipRgn = node;
    }
    const size_t before = mallinfo2().arena;
    for (auto _ : state) {
        rgn.StandardRgn();
        state.PauseTiming();
        state.counters["bytes_a_level"] = static_cast<double>(mallinfo2().arena - before) / depth;
        state.ResumeTiming();
    }
}

void registerPair(const std::string& picture, gpc_op op, ClipperLib::ClipType type, int64_t count) {
    benchmark::RegisterBenchmark((picture + "/ours").c_str(), clipOurs, op)->Arg(count);
    benchmark::RegisterBenchmark((picture + "/hand").c_str(), clipByHand, type)->Arg(count);
}

} // namespace

int main(int argc, char** argv) {
    for (const int64_t count : {100, 1000, 100000}) {
        registerPair("BM_Union", GPC_UNION, ClipperLib::ctUnion, count);
        registerPair("BM_Intersection", GPC_INT, ClipperLib::ctIntersection, count);
        registerPair("BM_Difference", GPC_DIFF, ClipperLib::ctDifference, count);
    }
    for (const int64_t count : {100, 1000, 10000}) {
        benchmark::RegisterBenchmark("BM_Combine/ours", combineOurs)->Arg(count);
        benchmark::RegisterBenchmark("BM_Combine/hand", clipOurs, GPC_UNION)->Arg(count);
    }
    benchmark::RegisterBenchmark("BM_Evaluate", evaluate)->Arg(10)->Arg(100)->Arg(500)->Arg(2000);
    benchmark::RegisterBenchmark("BM_Circles/ours", circlesInAList)->Arg(16384);
    benchmark::RegisterBenchmark("BM_Circles/hand", circlesByHand)->Arg(16384);
    benchmark::RegisterBenchmark("BM_Teeth/lying", cutTeeth, true)->Arg(2000)->Arg(20000);
    benchmark::RegisterBenchmark("BM_Teeth/standing", cutTeeth, false)->Arg(2000)->Arg(20000);
    benchmark::RegisterBenchmark(
        "BM_CombineTeeth/ours",
        [](benchmark::State& state) { combineOutlines(state, 4, teeth(static_cast<size_t>(state.range(0))), bar); })
        ->Arg(200)
        ->Arg(2000);
    benchmark::RegisterBenchmark("BM_CombineTeeth/hand", cutTeeth, true)->Arg(200)->Arg(2000);
    benchmark::RegisterBenchmark("BM_Brackets", brackets)->Arg(10)->Arg(1000)->Iterations(1);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
