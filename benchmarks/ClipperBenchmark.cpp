// SPDX-License-Identifier: BSD-3-Clause

// Boolean operations on two outlines, through the open polygon clipper and through engines themselves.
//
// Names read BM_<operation>/<side>/<outlines>/<vertices>. "ours" is `gpc_polygon_clip`, "clipper" the bare Clipper
// engine on paths that are on the grid already, "boost" Boost.Geometry, where it is found. The outlines are two stars,
// or two rows of teeth that cross each other, which lie along the x axis or stand along the y axis: sweeps along y have
// all teeth before them at once in the one case, and few in the other. The counter "result" is the area that comes out,
// the same on each side.

#include <string>
#include <utility>

#include <benchmark/benchmark.h>

#include "EngineSides.h"
#include "RegionShapes.h"
#include "gpc.h"
#ifdef KELDRIVER_HAS_BOOST
#include "BoostClipper.h"
#endif

namespace {

struct Side {
    const char* name;
    void (*clip)(benchmark::State& state, gpc_op op, const Outline& first, const Outline& second);
};

constexpr Side sides[] = {
    {"ours", clipByGpc},
    {"clipper", clipByEngine},
#ifdef KELDRIVER_HAS_BOOST
    {"boost", clipByBoost},
#endif
};

struct Operation {
    const char* name;
    gpc_op op;
};

constexpr Operation operations[] = {{"Union", GPC_UNION}, {"Intersection", GPC_INT}, {"Difference", GPC_DIFF}};

struct Shape {
    const char* name;
    std::pair<Outline, Outline> (*make)(size_t vertices);
    size_t largest;
    size_t largestForBoost; ///< its time grows with the square of the number of teeth
};

const Shape shapes[] = {
    {"stars",
     [](size_t n) {
         return std::pair(star(n, {-100, 0}, 900, 1), star(n, {100, 50}, 900, 2));
     },
     100000, 100000},
    {"lying teeth", [](size_t n) { return std::pair(teeth(n), teethFromAbove(n)); }, 10000, 10000},
    {"standing teeth", [](size_t n) { return std::pair(exchanged(teeth(n)), exchanged(teethFromAbove(n))); }, 100000,
     10000},
};

void add(const Operation& operation, const Shape& shape, size_t count) {
    for (const Side& side : sides) {
        if (std::string(side.name) == "boost" && count > shape.largestForBoost) {
            continue;
        }
        const std::string name =
            std::string("BM_") + operation.name + '/' + side.name + '/' + shape.name + '/' + std::to_string(count);
        benchmark::RegisterBenchmark(name.c_str(), [&operation, &shape, &side, count](benchmark::State& state) {
            const auto outlines = shape.make(count);
            side.clip(state, operation.op, outlines.first, outlines.second);
        });
    }
}

} // namespace

int main(int argc, char** argv) {
    for (const Operation& operation : operations) {
        for (const Shape& shape : shapes) {
            for (const size_t count : {size_t{100}, size_t{1000}, shape.largest}) {
                add(operation, shape, count);
            }
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
