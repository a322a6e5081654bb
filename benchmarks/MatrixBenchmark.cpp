// SPDX-License-Identifier: BSD-3-Clause

// The coordinate transform beside Qt's, in one run: a 3x3 product and the mapping of a point. Names read
// BM_<operation>/<ours or qtransform>.
//
// There is no target: the transform keeps its elements on the heap and works on matrices of any size, Qt's does
// neither.

#include <benchmark/benchmark.h>

#include <QTransform>

#include "keldriver/UCS33.h"

namespace {

CUCS33 ours() {
    CUCS33 ucs;
    ucs.CreateUCS(10, 20, 0.6, 0.8);
    return ucs;
}

QTransform qts() {
    return {0.6, 0.8, -0.8, 0.6, 10, 20};
}

void productOurs(benchmark::State& state) {
    const CUCS33 first = ours();
    const CUCS33 second = ours();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(first * second);
    }
}
BENCHMARK(productOurs)->Name("BM_Product/ours");

void productQt(benchmark::State& state) {
    const QTransform first = qts();
    const QTransform second = qts();
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(first * second);
    }
}
BENCHMARK(productQt)->Name("BM_Product/qtransform");

void mapOurs(benchmark::State& state) {
    const CUCS33 ucs = ours();
    double x = 1;
    double y = 2;
    for ([[maybe_unused]] const auto iteration : state) {
        ucs.MultiplyPointXY(x, y);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
    }
}
BENCHMARK(mapOurs)->Name("BM_MapPoint/ours");

void mapQt(benchmark::State& state) {
    const QTransform transform = qts();
    double x = 1;
    double y = 2;
    for ([[maybe_unused]] const auto iteration : state) {
        transform.map(x, y, &x, &y);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
    }
}
BENCHMARK(mapQt)->Name("BM_MapPoint/qtransform");

} // namespace

BENCHMARK_MAIN();
