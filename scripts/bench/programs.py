# SPDX-License-Identifier: BSD-3-Clause
"""Tables of whole programs: kelplot beside parsing alone, and the frames of the preview."""
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

from sheet import Ratio, Row, Sheet, keeps_to, ratio_text

PEERS = Path("benchmarks/peers")
PARSING = "parsing alone"
CONTENTS = {"mixed": "mixed entities", "references": "references to one block"}


@dataclass(frozen=True)
class DrawingGoal:
    """At most so much of a figure, for drawings of some content and size, and programs whose names match."""

    content: str
    count: int
    programs: str
    figure: str  # a key of FIGURES
    at_most: float


# What a goal can be about: how it is read from a program's result and that of parsing, and how it is written.
FIGURES = {
    "ratio": (lambda result, parsing: result["seconds"] / parsing["seconds"], "≤ {:g} of parsing"),
    "memory": (lambda result, _: result["megabytes"], "≤ {:g} MB of memory"),
    "output": (lambda result, _: result["output"], "≤ {:g} MB of output"),
}


@dataclass(frozen=True)
class Drawings:
    """kelplot into each format, for each drawing a table, and one of what an entity costs in drawings of all sizes."""

    name: str
    goals: tuple
    growth_at_most: float
    growth_formats: str  # the programs that the goal of growth is for

    def sheets(self, options):
        counts, runs = ("10000,100000", 1) if options.quick else ("10000,100000,1000000", 3)
        command = [sys.executable, PEERS / "compare.py", options.build, "--counts", counts, "--runs", str(runs),
                   "--timeout", "60"]
        drawings = json.loads(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout)
        for drawing in drawings:
            if drawing["count"] > 10000:
                yield self.of_drawing(drawing)
        yield self.growth([drawing for drawing in drawings if drawing["content"] == "mixed"])

    def of_drawing(self, drawing):
        title = f"{drawing['count']:,} {CONTENTS[drawing['content']]}"
        rows = [self.row(name, drawing, f"{title}: {name}") for name in drawing["results"]]
        return Sheet(["CPU (s)", "of parsing", "memory (MB)", "output (MB)"], rows,
                     caption=f"{title}, {drawing['megabytes']:.1f} MB:")

    def row(self, name, drawing, key):
        result, parsing = drawing["results"][name], drawing["results"][PARSING]
        is_ours = name.startswith("kelplot")
        if result["failure"]:
            cells = [result["failure"], "", f"{result['megabytes']:.0f}", ""]
            return Row(name, cells, [("runs", False)] if is_ours else [], key)
        ratio = Ratio(PARSING, result["seconds"] / parsing["seconds"])
        goals = []
        for goal in self.goals:
            if (goal.content, goal.count) == (drawing["content"], drawing["count"]) and re.search(goal.programs, name):
                read, text = FIGURES[goal.figure]
                goals.append((text.format(goal.at_most), keeps_to(read(result, parsing), goal.at_most)))
        return Row(name, [f"{result['seconds']:.2f}", ratio if is_ours else ratio_text(ratio),
                           f"{result['megabytes']:.0f}", f"{result['output']:.1f}" if result["output"] else ""],
                   goals, key)

    def growth(self, drawings):
        """What one entity costs, the share of starting the program included."""
        rows = []
        for name in drawings[0]["results"]:
            cells, costs = [], []
            for drawing in drawings:
                result = drawing["results"][name]
                if result["failure"]:
                    cells.append("")
                    continue
                cost = (result["seconds"] * 1e6 / drawing["count"], result["megabytes"] * 1048576 / drawing["count"])
                costs.append(cost)
                cells.append(f"{cost[0]:.1f} µs, {cost[1]:.0f} B")
            goals = []
            if re.search(self.growth_formats, name) and len(costs) == len(drawings):
                worst = max(last / first for first, last in zip(costs[0], costs[-1]))
                goals = [(f"last ≤ {self.growth_at_most:g} of first", keeps_to(worst, self.growth_at_most))]
            rows.append(Row(name, cells, goals))
        return Sheet([f"{drawing['count']:,}" for drawing in drawings], rows,
                     caption="CPU time and peak memory an entity, in drawings of different sizes:")


@dataclass(frozen=True)
class Frames:
    """How long the preview's frames take. They are no ratios, so nothing of them is kept."""

    name: str
    milliseconds: float  # that 95 of 100 frames may take
    entities: int = 100000

    def sheets(self, options):
        program = options.build / "benchmarks/kelplot/preview_frames"
        display = [] if os.environ.get("DISPLAY") else ["xvfb-run", "-a", "-s", "-screen 0 1920x1080x24"]
        if not program.exists():
            yield Sheet([], [], caption="Skipped: the preview is not built.")
        elif display and not shutil.which(display[0]):
            yield Sheet([], [], caption="Skipped: there is neither a display nor xvfb-run.")
        else:
            with tempfile.TemporaryDirectory() as folder:
                drawing = Path(folder) / "drawing.dxf"
                subprocess.run([sys.executable, PEERS / "make_drawing.py", "mixed", str(self.entities), drawing],
                               check=True)
                environment = {**os.environ, "QT_QPA_PLATFORM": "xcb"}
                shown = subprocess.run([*display, program, drawing], check=True, env=environment,
                                       stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
            yield self.sheet(json.loads(shown.stdout))

    def sheet(self, moves):
        rows = []
        for move in moves:
            cells = [f"{move[key]:.1f} ms" for key in ("median", "most", "worst")]
            rows.append(Row(move["page"], [*cells, f"{move['settled'] / 1000:.1f} s"],
                            [(f"95 % ≤ {self.milliseconds:g} ms", move["most"] <= self.milliseconds)]))
        return Sheet(["median", "95 %", "worst", "drawn afresh after"], rows, "the page")
