// SPDX-License-Identifier: BSD-3-Clause
#include "GuiBenchmarks.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

int runGuiBenchmarks(int argc, char** argv, void (*registerAll)()) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    registerAll();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
