#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Turns the JSON output of paired benchmarks into a Markdown table of ratios.

Benchmarks pair up by name: BM_<picture>/ours/<rest> and BM_<picture>/hand/<rest>. The times are medians of
the repetitions. Run the program so that both sides of a pair meet the same state of the machine:

    render_benchmark --benchmark_repetitions=15 --benchmark_enable_random_interleaving=true \
        --benchmark_format=json > result.json
    benchmark_table.py result.json

Options `--limit NAME=RATIO` make the script fail when a pair whose name contains NAME is slower than that.
"""
import argparse
import json
import statistics
import sys

SIDES = ("ours", "hand")
NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def read_runs(path):
    """Maps (pair name, side) to the single runs of a result file."""
    with (sys.stdin if path == "-" else open(path, encoding="utf-8")) as file:
        runs = json.load(file)["benchmarks"]
    result = {}
    for run in runs:
        if run["run_type"] != "iteration":
            continue
        parts = run["run_name"].split("/")
        side = next((part for part in parts if part in SIDES), None)
        if side:
            pair = "/".join(part for part in parts if part != side).removeprefix("BM_")
            result.setdefault((pair, side), []).append(run)
    return result


def median_time(runs):
    return statistics.median(run["cpu_time"] * NANOSECONDS[run["time_unit"]] for run in runs)


def rows(runs):
    """One (pair, ours in ns, hand in ns, allocations of ours, allocations of hand) a complete pair."""
    for pair in dict.fromkeys(name for name, _ in runs):
        sides = [runs.get((pair, side)) for side in SIDES]
        if all(sides):
            times = [median_time(side) for side in sides]
            allocations = [side[0].get("allocs", float("nan")) for side in sides]
            yield (pair, *times, *allocations)


def parse_limit(text):
    name, _, ratio = text.rpartition("=")
    return name, float(ratio)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("result", help="JSON file, or - for standard input")
    parser.add_argument("--limit", action="append", type=parse_limit, default=[], metavar="NAME=RATIO")
    options = parser.parse_args()

    slow = []
    print("| Benchmark | ours (ns) | by hand (ns) | ratio | allocations: ours | by hand |")
    print("|---|---:|---:|---:|---:|---:|")
    for pair, ours, hand, our_allocations, hand_allocations in rows(read_runs(options.result)):
        ratio = ours / hand
        print(f"| {pair} | {ours:.0f} | {hand:.0f} | {ratio:.3f} | {our_allocations:g} | {hand_allocations:g} |")
        slow += [(pair, ratio, limit) for name, limit in options.limit if name in pair and ratio > limit]
    for pair, ratio, limit in slow:
        print(f"{pair}: ratio {ratio:.3f} is above {limit}", file=sys.stderr)
    return 1 if slow else 0


if __name__ == "__main__":
    sys.exit(main())
