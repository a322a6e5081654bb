// SPDX-License-Identifier: BSD-3-Clause

// Boolean operations on regions.
//
// BM_Clip: `gpc_polygon_clip` ("ours") against the bare Clipper engine on paths that are on the grid already
// ("hand"). BM_Combine: `CVornRgn::CombineRgn` against a bare `gpc_polygon_clip` of the same polygons.
// BM_Evaluate: a list of contours; "items_per_second" counts contours. BM_Brackets: an expression nested to a
// depth; "bytes_a_level" stays level where a bracket costs constant memory.

#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
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

void clipOurs(benchmark::State& state, gpc_op op) {
    const auto count = static_cast<size_t>(state.range(0));
    OneContour subject(star(count, {-100, 0}, 900, 1));
    OneContour clip(star(count, {100, 50}, 900, 2));
    for (auto _ : state) {
        gpc_polygon a = subject.polygon();
        gpc_polygon b = clip.polygon();
        gpc_polygon result{};
        gpc_polygon_clip(op, &a, &b, &result);
        benchmark::DoNotOptimize(result.num_contours);
        gpc_free_polygon(&result);
    }
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

void combineOurs(benchmark::State& state) {
    const auto count = static_cast<size_t>(state.range(0));
    const Outline first = star(count, {-100, 0}, 900, 1);
    const Outline second = star(count, {100, 50}, 900, 2);
    CVornRgn a;
    CVornRgn b;
    a.CreatePolygonRgn(first.data(), static_cast<int>(count), 1);
    b.CreatePolygonRgn(second.data(), static_cast<int>(count), 1);
    CVornRgn result;
    for (auto _ : state) {
        benchmark::DoNotOptimize(result.CombineRgn(&a, &b, 2));
    }
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
    benchmark::RegisterBenchmark("BM_Brackets", brackets)->Arg(10)->Arg(1000)->Iterations(1);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
