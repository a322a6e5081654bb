# SPDX-License-Identifier: BSD-3-Clause
"""Tables of benchmarks whose sides are measured in turn, in one run of one program.

The names of the benchmarks read BM_<picture>/<side>/<rest>; those that differ only in their side make a row. Times are
the medians of the repetitions.
"""
import json
import re
import statistics
import subprocess
import tempfile
from dataclasses import dataclass

from sheet import Ratio, Row, Sheet, keeps_to

NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
SAME = 1e-3  # how far apart the counters "result" of the sides may be, in relation


@dataclass(frozen=True)
class Goal:
    """At most this ratio to a side, in rows whose BM_ name without the side matches."""

    at_most: float
    against: str = ""  # empty: the first side after ours
    rows: str = ""


@dataclass
class Run:
    """The repetitions of one benchmark."""

    times: list
    counters: dict
    error: str = ""

    @property
    def time(self):
        return statistics.median(self.times)


def split_name(name):
    picture, side, *rest = name.removeprefix("BM_").split("/")
    return side, "/".join([picture, *rest])


def three_digits(value):
    return f"{value:.3g}" if value < 999.5 else f"{value:.0f}"


def time_text(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{three_digits(nanoseconds / size)} {unit}"
    return f"{three_digits(nanoseconds)} ns"


def measure(table, options):
    """Runs a table's program; maps the names of the rows to maps of their sides to runs, in the program's order."""
    program = str(options.build / "benchmarks" / table.program)
    chosen = f"--benchmark_filter={table.filter}"
    listed = subprocess.run([program, chosen, "--benchmark_list_tests=true"], check=True, capture_output=True,
                            text=True)
    rows = {}
    for name in listed.stdout.splitlines():
        rows.setdefault(split_name(name)[1], {})
    repetitions, least = (1, 0.005) if options.quick else (table.repetitions, 0.05)
    with tempfile.NamedTemporaryFile(suffix=".json") as result:
        subprocess.run([program, chosen, f"--benchmark_repetitions={repetitions}", f"--benchmark_min_time={least}",
                        "--benchmark_enable_random_interleaving=true", f"--benchmark_out={result.name}"],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        runs = [run for run in json.load(result)["benchmarks"] if run["run_type"] == "iteration"]
    for run in runs:
        side, row = split_name(run["run_name"])
        known = rows[row].setdefault(side, Run([], run, run.get("error_message", "")))
        known.times.append(run.get("cpu_time", 0.0) * NANOSECONDS[run.get("time_unit", "ns")])
    for row, sides in rows.items():
        check_results(row, sides)
    return rows


def check_results(row, sides):
    """Sides that do not do the same cannot be compared."""
    results = [run.counters["result"] for run in sides.values() if "result" in run.counters and not run.error]
    if results and max(results) - min(results) > SAME * max(map(abs, results)):
        raise SystemExit(f"{row}: the sides give different results, {results}")


def row_name(key, pictures, is_code):
    """A row in words: the picture is left out where the table has only one."""
    parts = [f"{int(part):,}" if part.isdecimal() else part for part in key.split("/")]
    text = ", ".join(parts[1:] if pictures == 1 and len(parts) > 1 else parts)
    return f"`{text}`" if is_code else text


@dataclass(frozen=True)
class Pairs:
    """A side, ours, against others."""

    name: str
    program: str
    filter: str
    sides: dict  # from the names of sides to headings; the first is ours
    goals: tuple = ()
    first: str = ""  # the heading of the rows' names
    repetitions: int = 9
    counts_allocations: bool = False  # none beyond those of the other side are allowed
    is_code: bool = False  # whether the names of rows are code

    def sheets(self, options):
        rows = measure(self, options)
        there = {side for sides in rows.values() for side in sides}
        others = [side for side in self.sides if side in there][1:]
        columns = [next(iter(self.sides.values()))]
        for side in others:
            columns += [self.sides[side], "ratio"]
        if self.counts_allocations:
            columns += ["allocations", "by hand"]
        pictures = len({key.split("/")[0] for key in rows})
        yield Sheet(columns, [self.row(row_name(key, pictures, self.is_code), key, sides, others)
                              for key, sides in rows.items()], self.first)

    def row(self, name, key, sides, others):
        ours = sides[next(iter(self.sides))]
        if ours.error:
            raise SystemExit(f"{key}: {ours.error}")
        cells = [time_text(ours.time)]
        ratios = {}
        for side in others:
            run = sides.get(side)
            if run is None or run.error:
                cells += ["failed" if run else "", ""]
            else:
                ratios[side] = ours.time / run.time
                cells += [time_text(run.time), Ratio(side, ratios[side])]
        goals = [self.goal_of(goal, ratios[goal.against or others[0]], others) for goal in self.goals
                 if re.search(goal.rows, key) and (goal.against or others[0]) in ratios]
        if self.counts_allocations:
            counts = [run.counters["allocs"] for run in (ours, sides[others[0]])]
            cells += [f"{count:g}" for count in counts]
            goals.append(("no more allocations", counts[0] <= counts[1]))
        return Row(name, cells, goals)

    def goal_of(self, goal, ratio, others):
        whose = f" ({self.sides[goal.against or others[0]]})" if len(others) > 1 else ""
        return f"≤ {goal.at_most:.3g}{whose}", keeps_to(ratio, goal.at_most)


@dataclass(frozen=True)
class Growth:
    """How the time grows with the last part of the names, a number that goes up by tens."""

    name: str
    program: str
    filter: str
    at_most: float  # for ten times as many
    first: str = ""
    repetitions: int = 3

    def sheets(self, options):
        times = {}
        for key, sides in measure(self, options).items():
            row, _, size = key.rpartition("/")
            if sides["ours"].error:
                raise SystemExit(f"{key}: {sides['ours'].error}")
            times.setdefault(row, {})[int(size)] = sides["ours"].time
        sizes = sorted({size for row in times.values() for size in row})
        pictures = len({row.split("/")[0] for row in times})
        rows = []
        for row, of_size in times.items():
            largest = max(of_size)
            growth = of_size[largest] / of_size[largest // 10]
            cells = [time_text(of_size[size]) if size in of_size else "" for size in sizes]
            rows.append(Row(row_name(row, pictures, False), [*cells, Ratio("a tenth", growth)],
                            [(f"≤ {self.at_most:g}", keeps_to(growth, self.at_most))]))
        yield Sheet([f"{size:,}" for size in sizes] + ["growth"], rows, self.first)
