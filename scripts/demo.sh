#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs the dependencies, builds kelplot and plots an example drawing to PDF, PNG and SVG.
set -euo pipefail
cd "$(dirname "$0")/.."

drawing=examples/drawings/flange_plate.dxf
./scripts/install-deps.sh
cmake --preset release -DKELDRIVER_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build --preset release --target kelplot

mkdir -p plots
for format in pdf png svg; do
    plot="plots/$(basename "$drawing" .dxf).$format"
    started=$(date +%s%N)
    ./build/release/kelplot/kelplot -o "$plot" "$drawing"
    printf '%s: plotted in %d ms\n' "$PWD/$plot" $((($(date +%s%N) - started) / 1000000))
done
