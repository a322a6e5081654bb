#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs the dependencies, builds with warnings as errors and runs every test: first under the address,
# leak and undefined-behaviour sanitizers, then plainly. Ends with the test runner's summary.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen
for preset in asan-ubsan dev; do
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset"
    ctest --preset "$preset"
done
