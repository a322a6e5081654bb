// SPDX-License-Identifier: BSD-3-Clause

// Region objects and lists of contours.
//
// Names read BM_<operation>/<side>/<size>. Combine, CombineTeeth: `CVornRgn::CombineRgn` ("ours") against a bare
// `gpc_polygon_clip` of the same polygons ("clip"), for two stars and for a band of teeth less a bar, which leaves half
// as many contours as the band has vertices; Circles: a list of two circles that are united, against the same.
// Evaluate: a list of so many contours in mixed order ("ours"), against the bare Clipper engine, called once for each
// contour after the first ("clipper"). The counter "result" is the area that comes out. BM_Brackets/ours: an expression
// nested to a depth; "bytes_a_level" stays level where a bracket costs constant memory.

#include <malloc.h>

#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "EngineSides.h"
#include "RegionShapes.h"
#include "gpc.h"
#include "keldriver/KelDriver.h"

namespace {

constexpr int win32Or = 2;   // RGN_OR
constexpr int win32Diff = 4; // RGN_DIFF

const Outline bar{{-950, 30}, {950, 30}, {950, 60}, {-950, 60}};

struct DeleteRgn {
    void operator()(HT_ClipRgn* rgn) const { KelDriver::HT_DeleteRgn(rgn); }
};
using RgnList = std::unique_ptr<HT_ClipRgn, DeleteRgn>;

/// The area of an evaluated region.
double regionArea(const HT_ClipRgn* rgn) {
    double area = 0.0;
    for (; rgn != nullptr; rgn = rgn->next) {
        const double enclosed = std::abs(signedArea(rgn->points, static_cast<size_t>(rgn->pointCount)));
        area += rgn->mode == HT_RGN_DIFF ? -enclosed : enclosed;
    }
    return area;
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
    state.counters["result"] = regionArea(result.m_pClipRgn);
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

/// Evaluates copies of a list; what copying takes is the less, the longer the list.
void evaluateList(benchmark::State& state, const HT_ClipRgn* list) {
    RgnList last;
    for (auto _ : state) {
        last.reset(KelDriver::HT_CloneRgnData(list));
        benchmark::DoNotOptimize(PolyAlgoOperator::ClipRgnOperator(last.get()));
    }
    state.counters["result"] = regionArea(last.get());
}

/// Joins the contours in the order in which the list is evaluated.
void evaluateByEngine(benchmark::State& state, HT_ClipRgn* list) {
    OrderBorder(list);
    std::vector<std::pair<ClipperLib::ClipType, ClipperLib::Path>> steps;
    for (const HT_ClipRgn* node = list; node != nullptr; node = node->next) {
        steps.emplace_back(node->mode == HT_RGN_DIFF ? ClipperLib::ctDifference : ClipperLib::ctUnion,
                           gridPath(Outline(node->points, node->points + node->pointCount)));
    }
    ClipperLib::Paths result;
    for (auto _ : state) {
        result = {steps.front().second};
        for (size_t i = 1; i < steps.size(); ++i) {
            ClipperLib::Clipper clipper;
            clipper.AddPaths(result, ClipperLib::ptSubject, true);
            clipper.AddPath(steps[i].second, ClipperLib::ptClip, true);
            clipper.Execute(steps[i].first, result, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
        }
    }
    state.counters["result"] = areaOf(result);
}

RgnList twoCircles(size_t corners) {
    const Outline left = circle(corners, {-300, 0}, 600);
    const Outline right = circle(corners, {300, 0}, 600);
    RgnList list(KelDriver::HT_CreatePolygonRgnData(left.data(), static_cast<int>(corners)));
    list->next = KelDriver::HT_CreatePolygonRgnData(right.data(), static_cast<int>(corners));
    list->next->mode = HT_RGN_OR;
    return list;
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

/// Registers a benchmark of `count` vertices or contours.
void add(const char* name, size_t count, const std::function<void(benchmark::State&)>& run) {
    benchmark::RegisterBenchmark((std::string("BM_") + name + '/' + std::to_string(count)).c_str(), run);
}

void registerAll() {
    using benchmark::State;
    for (const size_t n : {size_t{100}, size_t{1000}, size_t{10000}}) {
        const Outline left = star(n, {-100, 0}, 900, 1);
        const Outline right = star(n, {100, 50}, 900, 2);
        add("Combine/ours", n, [=](State& state) { combineOutlines(state, win32Or, left, right); });
        add("Combine/clip", n, [=](State& state) { clipByGpc(state, GPC_UNION, left, right); });
    }
    const size_t corners = 16384;
    add("Circles/ours", corners, [=](State& state) { evaluateList(state, twoCircles(corners).get()); });
    add("Circles/clip", corners, [=](State& state) {
        clipByGpc(state, GPC_UNION, circle(corners, {-300, 0}, 600), circle(corners, {300, 0}, 600));
    });
    for (const size_t n : {size_t{200}, size_t{2000}}) {
        add("CombineTeeth/ours", n, [=](State& state) { combineOutlines(state, win32Diff, teeth(n), bar); });
        add("CombineTeeth/clip", n, [=](State& state) { clipByGpc(state, GPC_DIFF, teeth(n), bar); });
    }
    for (const size_t n : {size_t{10}, size_t{100}, size_t{500}}) {
        add("Evaluate/ours", n, [=](State& state) { evaluateList(state, contours(static_cast<int>(n)).get()); });
        add("Evaluate/clipper", n, [=](State& state) { evaluateByEngine(state, contours(static_cast<int>(n)).get()); });
    }
    benchmark::RegisterBenchmark("BM_Brackets/ours", brackets)->Arg(10)->Arg(1000)->Iterations(1);
}

} // namespace

int main(int argc, char** argv) {
    registerAll();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
