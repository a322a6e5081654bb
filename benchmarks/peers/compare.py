#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Measures kelplot beside parsing alone and beside other programs, and prints the figures as JSON.

    cmake --preset release && cmake --build --preset release
    benchmarks/peers/compare.py build/release

For each drawing and program: CPU seconds (user and system), peak memory, of which 16 MB is the least that this script
can tell, and the size of what was written, both in megabytes, or the reason why there are none. Programs that are not
installed are left out. scripts/bench.sh makes tables of it.
"""
import argparse
import json
import os
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
from dataclasses import asdict, dataclass
from pathlib import Path

MAKE_DRAWING = Path(__file__).with_name("make_drawing.py")
PARSING = "parsing alone"


@dataclass
class Program:
    """A command line in which {drawing} and {output} stand for files."""

    name: str
    command: list
    ending: str = ""  # of what it writes; empty: nothing


@dataclass
class Result:
    seconds: float = 0.0
    megabytes: float = 0.0
    output: float = 0.0  # megabytes
    failure: str = ""


def programs(build):
    kelplot = [str(build / "kelplot/kelplot"), "--quiet"]
    plot = [*kelplot, "-o", "{output}", "{drawing}"]
    found = [
        Program(PARSING, [str(build / "benchmarks/kelplot/parse_only"), "{drawing}"]),
        Program("kelplot, reading", [*kelplot, "--list-layers", "{drawing}"]),
        Program("kelplot to PDF, fonts", [*plot, "--text=fonts"], ".pdf"),
        Program("kelplot to PDF, outlines", [*plot, "--text=outlines"], ".pdf"),
        Program("kelplot to SVG", plot, ".svg"),
        Program("kelplot to PNG (A1, 200 dpi)", [*plot, "--paper=A1", "--dpi=200"], ".png"),
    ]
    for own in found[:2]:
        if not os.access(own.command[0], os.X_OK):
            sys.exit(f"{own.command[0]}: not built")
    peers = [
        Program("LibreCAD to PDF", ["librecad", "dxf2pdf", "-a", "{drawing}"], ".pdf"),  # beside the drawing
        Program("ezdxf to PDF", ["ezdxf", "draw", "-o", "{output}", "{drawing}"], ".pdf"),
    ]
    return found + [peer for peer in peers if shutil.which(peer.command[0])]


def measure(program, drawing, timeout):
    """Runs a program once, in a process group of its own that ends with the time allowed."""
    output = drawing.with_suffix(program.ending or ".none")
    output.unlink(missing_ok=True)
    command = [part.format(drawing=drawing, output=output) for part in program.command]
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    process = subprocess.Popen(command, cwd=drawing.parent, env=environment, start_new_session=True,
                               stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def stop(*_):
        os.killpg(process.pid, signal.SIGKILL)

    signal.signal(signal.SIGALRM, stop)
    signal.alarm(timeout)
    _, status, usage = os.wait4(process.pid, 0)  # tells what the program used; no less than this script's own 16 MB
    signal.alarm(0)
    process.returncode = os.waitstatus_to_exitcode(status)
    result = Result(usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024)
    if process.returncode == -signal.SIGKILL:
        result.failure = f"stopped after {timeout} s or out of memory"
    elif process.returncode != 0:
        result.failure = f"status {process.returncode}"
    elif program.ending and not output.exists():
        result.failure = "wrote nothing"
    elif program.ending:
        result.output = output.stat().st_size / 1e6
    return result


def median_of(runs):
    failed = next((run for run in runs if run.failure), None)
    if failed:
        return failed
    return Result(*(statistics.median(getattr(run, field) for run in runs)
                    for field in ("seconds", "megabytes", "output")))


def compare(drawing, compared, options):
    """Maps the names of programs to their results; they take turns, so that a busy machine meets them all."""
    runs = {program.name: [] for program in compared}
    for _ in range(options.runs):
        for program in compared:
            done = runs[program.name]
            if not any(run.failure for run in done):
                done.append(measure(program, drawing, options.timeout))
    return {name: median_of(done) for name, done in runs.items()}


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=Path, help="folder of a release build with the benchmarks")
    parser.add_argument("--runs", type=int, default=3, help="of each program; medians count [3]")
    parser.add_argument("--counts", default="10000,100000,1000000", help="of mixed entities [10000,100000,1000000]")
    parser.add_argument("--references", type=int, default=100000, help="to one block; 0: none [100000]")
    parser.add_argument("--timeout", type=int, default=600, help="seconds that a run may take [600]")
    options = parser.parse_args()

    compared = programs(options.build.resolve())
    drawings = [("mixed", int(count)) for count in options.counts.split(",")]
    drawings += [("references", options.references)] if options.references else []
    figures = []
    with tempfile.TemporaryDirectory() as name:
        drawing = Path(name) / "drawing.dxf"
        for content, count in drawings:
            subprocess.run([sys.executable, MAKE_DRAWING, content, str(count), drawing], check=True)
            results = {name: asdict(result) for name, result in compare(drawing, compared, options).items()}
            figures.append({"content": content, "count": count, "megabytes": drawing.stat().st_size / 1e6,
                            "results": results})
    json.dump(figures, sys.stdout, indent=1)


if __name__ == "__main__":
    main()
