#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs the dependencies, builds with warnings as errors and runs every test: first under the address,
# leak and undefined-behaviour sanitizers, then plainly in the locale "C", which has the least. Ends with the test
# runner's summary, the tests that were skipped, with their reasons, and the size of the tests against the code.
set -euo pipefail
cd "$(dirname "$0")/.."

# Prints "name: reason" for each test that a run's log shows as skipped.
skipped() {
    awk '/: Skipped$/ { getline reason }
         /^\[  SKIPPED \] .*\(/ { print "  " $4 ": " reason }' "$1"
}

# Counts the lines of all C++ sources in some folders.
lines_in() {
    find "$@" -type f \( -name '*.h' -o -name '*.cpp' \) -exec cat {} + | wc -l
}

./scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen
for preset in asan-ubsan dev; do
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset"
done
ctest --preset asan-ubsan -j "$(nproc)"
LC_ALL=C ctest --preset dev -j "$(nproc)"

skips=$(for preset in asan-ubsan dev; do skipped "build/$preset/Testing/Temporary/LastTest.log"; done | LC_ALL=C sort -u)
if [ -n "$skips" ]; then
    printf 'skipped: %d\n%s\n' "$(wc -l <<<"$skips")" "$skips"
else
    echo "skipped: none"
fi

tests=$(lines_in tests)
code=$(lines_in src include host kelplot)
printf 'tests: %d lines, %d %% of the %d lines of code\n' "$tests" "$((100 * tests / code))" "$code"
