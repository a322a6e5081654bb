#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# What a commit must pass before the tests: the format of every source, a docstring for every public name, clang's
# warnings over every source, and clang-tidy over the sources that changed since the last release. Before the first
# release, and in a checkout without tags, that is a sample and what is not committed yet.
set -euo pipefail
cd "$(dirname "$0")/.."

sample=(
    src/port/format/WideFormat.cpp
    src/region/RegionBuilder.cpp
    src/render/QTRendererText.cpp
    src/settings/IniSections.cpp
    host/tarsel/src/Junction.cpp
    host/vnbase/src/PolylineClipper.cpp
    kelplot/cli/job/PlotPlan.cpp
    kelplot/reader/entity/PolylineDecoder.cpp
    tests/geometry/MatrixTest.cpp
    tests/render/SessionTest.cpp
    benchmarks/ClipLineBenchmark.cpp
    fuzz/IniFuzzer.cpp
)

# The sources that differ from a revision, and for each such header one that includes it.
changedSince() {
    local files
    files=$(git diff --name-only --diff-filter=d "$1" -- '*.cpp' '*.h'
            git ls-files --others --exclude-standard -- '*.cpp' '*.h')
    grep '\.cpp$' <<<"$files" || true
    while read -r header; do
        git grep --untracked -lE "#include .*\b$(basename "$header")[\">]" -- '*.cpp' | sed -n 1p || true
    done < <(grep '\.h$' <<<"$files")
}

./scripts/install-deps.sh lint
./scripts/format.sh --check

echo "checking the direction of includes"
./scripts/check_includes.py >/dev/null

echo "checking the docstrings of the public headers"
mkdir -p build
doxygen scripts/Doxyfile

cmake --preset lint >/dev/null
echo "checking every source with clang"
./scripts/lint_commands.py build/lint build/lint/once >build/lint/checks
xargs -0 -n1 -P"$(nproc)" sh -c <build/lint/checks

if tag=$(git describe --tags --abbrev=0 2>/dev/null); then
    files=$(changedSince "$tag")
else
    files=$(printf '%s\n' "${sample[@]}"; changedSince HEAD)
fi
files=$(sort -u <<<"$files")
printf 'checking with clang-tidy:\n%s\n' "$files"
# It also counts what it does not show: the findings in the headers of others.
xargs -r -n1 -P"$(nproc)" clang-tidy -p build/lint/once --quiet <<<"$files" 2>&1 |
    { grep -v ' warnings\? generated\.$' || true; }
