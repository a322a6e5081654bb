#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# Compares plotting a drawing with only parsing it: medians of time and peak memory as a Markdown table.
# Build with -DCMAKE_BUILD_TYPE=Release -DKELDRIVER_BUILD_BENCHMARKS=ON first.
set -eu

if [ $# -lt 2 ] || [ $# -gt 3 ]; then
    echo "usage: $0 BUILD_DIRECTORY DRAWING.dxf [RUNS]" >&2
    exit 1
fi
build=$1
drawing=$2
runs=${3:-7}
parse_only=$build/benchmarks/kelplot/parse_only
kelplot=$build/kelplot/kelplot
for program in "$parse_only" "$kelplot"; do
    if [ ! -x "$program" ]; then
        echo "$0: $program: not built" >&2
        exit 2
    fi
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT INT TERM
python3 - "$runs" "$drawing" "$work/plot" "$parse_only" "$kelplot" <<'PYTHON'
import os
import statistics
import sys
import time

runs, drawing, plot, parse_only, kelplot = int(sys.argv[1]), *sys.argv[2:]
commands = {
    "parse only": [parse_only, drawing],
    "kelplot to SVG": [kelplot, "--quiet", "-o", plot + ".svg", drawing],
    "kelplot to PDF": [kelplot, "--quiet", "-o", plot + ".pdf", drawing],
    "kelplot to PNG": [kelplot, "--quiet", "-o", plot + ".png", drawing],
}


def measure(command):
    """Runs a command and returns its seconds and its peak memory in MB."""
    start = time.monotonic()
    process = os.spawnv(os.P_NOWAIT, command[0], command)
    _, status, usage = os.wait4(process, 0)
    seconds = time.monotonic() - start
    if status != 0:
        sys.exit(f"{command[0]} failed with {os.waitstatus_to_exitcode(status)}")
    return seconds, usage.ru_maxrss / 1024


# The programs take turns, so that a disturbance of the machine meets both.
results = {name: [] for name in commands}
for _ in range(runs):
    for name, command in commands.items():
        results[name].append(measure(command))

base = statistics.median(seconds for seconds, _ in results["parse only"])
print(f"{os.path.basename(drawing)}, {os.path.getsize(drawing) / 1e6:.1f} MB, medians of {runs} runs\n")
print("| | time (s) | ratio | peak memory (MB) |")
print("|---|---|---|---|")
for name, rows in results.items():
    seconds = statistics.median(row[0] for row in rows)
    memory = statistics.median(row[1] for row in rows)
    print(f"| {name} | {seconds:.3f} | {seconds / base:.2f} | {memory:.0f} |")
PYTHON
