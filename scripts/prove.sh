#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Runs one of the checks of docs/quality.md, which take too long for every change:
#   coverage              lines and branches that the tests reach, by folder
#   mutation [OPTION...]  small faults that the tests notice, at least 150 of them; options of scripts/mutate.py
#   fuzz [MINUTES [TARGET...]]
#                         every fuzz target, or these, one minute each unless told otherwise
#   valgrind              the tests of the library and of the open stand-ins under memcheck
#   soak [PLOTS]          plots in one process, 10,000 unless told otherwise, whose memory stays flat
#   threads               plots in two threads at a time, under the thread sanitizer
#   abi                   exported names, layouts, slots and signatures against the kept lists
set -euo pipefail
cd "$(dirname "$0")/.."
export QT_QPA_PLATFORM=offscreen

usage() {
    sed -n '3,11s/^# \?//p' "$0" >&2
    exit 2
}

# Configures and builds targets of a preset, quietly unless that fails.
build() {
    local preset=$1 log
    shift
    mkdir -p "build/$preset"
    log=build/$preset/prove.log
    if ! { cmake --preset "$preset" && cmake --build "build/$preset" --target "$@"; } >"$log" 2>&1; then
        tail -n 40 "$log" >&2
        exit 1
    fi
}

coverage() {
    ./scripts/install-deps.sh prove
    build coverage all
    find build/coverage -name '*.gcda' -delete
    # Without the tests whose programs are not allowed to write files: they could not leave their counts whole.
    ctest --preset coverage -j "$(nproc)" --output-on-failure -E '^OutputLimits\.' >build/coverage/tests.log || {
        tail -n 40 build/coverage/tests.log >&2
        exit 1
    }
    gcovr --root . --object-directory build/coverage --exclude-throw-branches --exclude-unreachable-branches \
        --filter src/ --filter include/ --filter host/ --filter kelplot/ --json-summary build/coverage/summary.json \
        build/coverage
    ./scripts/coverage_table.py build/coverage/summary.json
}

mutation() {
    ./scripts/install-deps.sh
    build dev all
    ./scripts/mutate.py --count 150 "$@"
}

fuzz() {
    ./scripts/fuzz.sh "$@"
}

valgrind_tests() {
    ./scripts/install-deps.sh prove
    build dev all
    local program
    for program in build/dev/tests/{geometry,host/*,image,kit,paper,port,region,render,settings}/*_test; do
        case $program in
        */region_oracle_test) continue ;; # as long as all others together, in the code of region_test
        esac
        echo "== ${program##*/}"
        valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite \
            --show-leak-kinds=definite --suppressions=tests/valgrind.supp "$program" --gtest_brief=1 \
            --gtest_filter=-ImageTest.ImagesOfOtherDepthsEndWithTheirBytes # looks at the padding of Qt's rows
    done
}

soak() {
    ./scripts/install-deps.sh
    build dev render_test
    KELDRIVER_PLOTS=${1:-10000} build/dev/tests/render/render_test --gtest_filter=WholePlots.LeaveNothingInMemory \
        --gtest_output=xml:build/dev/soak.xml
    grep -oE 'bytes_(early|late)" value="[0-9]+' build/dev/soak.xml | sed 's/" value="/: /'
}

threads() {
    ./scripts/install-deps.sh
    build tsan render_test
    TSAN_OPTIONS=suppressions=tests/tsan.supp:halt_on_error=1 \
        build/tsan/tests/render/render_test --gtest_filter='WholePlots.*:TextThreads.*'
}

abi() {
    ./scripts/install-deps.sh
    build dev KelDriver Tarsel Imgo vnbase
    ctest --test-dir build/dev -R '^install\.(binary_interface|exported_symbols)' --no-tests=error --output-on-failure
}

[ $# -gt 0 ] || usage
check=$1
shift
case $check in
mutation | fuzz | soak) "$check" "$@" ;;
coverage | valgrind | threads | abi)
    [ $# -eq 0 ] || usage
    [ "$check" != valgrind ] || check=valgrind_tests
    "$check"
    ;;
*) usage ;;
esac
