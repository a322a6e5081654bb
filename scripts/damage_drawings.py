#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Damages drawings in many ways and plots each of them, to see that kelplot neither crashes nor hangs.

The same seed and drawings give the same damage: a drawing is cut off, bytes are changed, lines are left out or doubled,
numbers become huge or none, or borders of clips, viewports and hatches become any. The whole drawing is plotted, or a
window of it, or all layouts. A plot may take 10 seconds and 1 GB; it has to end in status 0 or 3, and one of a drawing
that was cut off in status 3. A drawing that fails is kept, with its number, in the folder of --keep.

    scripts/damage_drawings.py --count 500 build/release/kelplot/kelplot one.dxf two.dxf...
"""
import argparse
import os
import random
import resource
import signal
import subprocess
import sys
import tempfile
import time
from collections import Counter
from pathlib import Path

STRANGE_NUMBERS = [b"1e308", b"-1e308", b"nan", b"inf", b"2147483647", b"-2147483648", b"99999999999999999999", b"1e-320",
                   b"0", b""]
BORDERED = (b"SPATIAL_FILTER", b"XRECORD", b"VIEWPORT", b"HATCH", b"IMAGE", b"WIPEOUT", b"LWPOLYLINE", b"INSERT")


def is_number(line):
    try:
        float(line)
        return True
    except ValueError:
        return False


def cut_off(data, chance):
    end = data.rindex(b"EOF")
    return data[:chance.randrange(end)]


def bytes_changed(data, chance):
    result = bytearray(data)
    for _ in range(chance.choice([1, 5, 50])):
        result[chance.randrange(len(result))] = chance.randrange(256)
    return bytes(result)


def lines_lost(data, chance):
    lines = data.split(b"\n")
    for _ in range(chance.choice([1, 2, 20])):
        start = chance.randrange(len(lines))
        del lines[start:start + chance.choice([1, 2, 7])]
        lines = lines or [b""]
    return b"\n".join(lines)


def lines_doubled(data, chance):
    lines = data.split(b"\n")
    for _ in range(chance.choice([1, 2, 20])):
        start, count = chance.randrange(len(lines)), chance.choice([1, 2, 50])
        lines[start:start] = lines[start:start + count]
    return b"\n".join(lines)


def numbers_strange(data, chance):
    lines = data.split(b"\n")
    values = [i for i in range(1, len(lines), 2) if is_number(lines[i])]
    for i in chance.sample(values, min(len(values), chance.choice([1, 10, 200]))):
        lines[i] = chance.choice(STRANGE_NUMBERS)
    return b"\n".join(lines)


def borders_strange(data, chance):
    """Gives some borders new corners, so that they cross themselves or are not finite, and sometimes many more."""
    lines = data.split(b"\n")
    spans, start = [], None
    for i in range(0, len(lines) - 1, 2):
        if lines[i].strip() == b"0":
            spans += [] if start is None else [(start, i)]
            start = i if lines[i + 1].strip() in BORDERED else None
    for first, end in chance.sample(spans, min(len(spans), chance.choice([1, 5]))):
        for i in range(first, end, 2):
            if lines[i].strip() in (b"10", b"20", b"11", b"21", b"14", b"24", b"40", b"41"):
                lines[i + 1] = chance.choice(STRANGE_NUMBERS + 50 * [b"%g" % chance.uniform(-1000, 1000)])
    if spans and chance.random() < 0.3:
        first, end = spans[chance.randrange(len(spans))]
        corners = [b"%d\n%g" % (code, chance.uniform(-1000, 1000)) for _ in range(chance.choice([20, 300, 5000]))
                   for code in (10, 20)]
        lines[end:end] = b"\n".join(corners).split(b"\n")
    return b"\n".join(lines)


DAMAGES = [cut_off, bytes_changed, lines_lost, lines_doubled, numbers_strange, borders_strange]


def window_of(data, chance):
    """A window where a drawing has something."""
    lines = data.split(b"\n")
    values = [(lines[i].strip(), float(lines[i + 1])) for i in range(0, len(lines) - 1, 2) if is_number(lines[i + 1])]
    x, y = (chance.choice([value for code, value in values if code == axis and abs(value) < 1e6])
            for axis in (b"10", b"20"))
    size = chance.choice([1e-3, 1.0, 100.0, 1e4])
    return f"--window={x},{y},{x + size},{y + size}"


def options_of_plot(data, folder, chance):
    """What is plotted: mostly the drawing as it was saved."""
    part = chance.randrange(4)
    if part == 0:
        return ["--format", "pdf", "--layout", "all", "-o", str(folder / "plot.pdf")]
    options = ["--format", "png", "--dpi", "30", "-o", str(folder / "plot.png")]
    if part == 1:
        options.append(window_of(data, chance))
    return options


def plot(program, drawing, options, seconds):
    """Plots a drawing and returns the status, negative for a signal, the seconds and the most bytes it took."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    command = [program, "--quiet", *options, str(drawing)]
    start = time.monotonic()
    process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 1)))
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    return process.returncode, time.monotonic() - start, usage.ru_maxrss * 1024


def faults_of(damage, status, seconds, size, options):
    if status < 0:
        yield f"ended by {signal.Signals(-status).name}"
    elif status not in (0, 3):
        yield f"ended in status {status}"
    elif damage is cut_off and status != 3:
        yield "was cut off and ended in status 0"
    if seconds > options.seconds:
        yield f"took {seconds:.1f} s"
    if size > options.megabytes << 20:
        yield f"took {size >> 20} MB"


def run(options):
    chance = random.Random(options.seed)
    drawings = {path: Path(path).read_bytes() for path in options.drawings}
    outcomes, failures, slowest, largest = Counter(), 0, 0.0, 0
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for number in range(options.count):
            path, damage = options.drawings[number % len(options.drawings)], chance.choice(DAMAGES)
            drawing = folder / "damaged.dxf"
            drawing.write_bytes(damage(drawings[path], chance))
            plotted = options_of_plot(drawings[path], folder, chance)
            status, seconds, size = plot(options.program, drawing, plotted, options.seconds)
            outcomes[damage.__name__, status] += 1
            slowest, largest = max(slowest, seconds), max(largest, size)
            faults = list(faults_of(damage, status, seconds, size, options))
            if faults:
                failures += 1
                print(f"{number}: {path}, {damage.__name__}: {', '.join(faults)}: {' '.join(plotted)}")
                if options.keep:
                    Path(options.keep).mkdir(parents=True, exist_ok=True)
                    (Path(options.keep) / f"{number}.dxf").write_bytes(drawing.read_bytes())
    for (damage, status), count in sorted(outcomes.items()):
        print(f"{damage}: {count} ended in status {status}")
    print(f"{options.count} plots, {failures} failed; the slowest took {slowest:.1f} s, the largest {largest >> 20} MB")
    return 1 if failures else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", help="kelplot")
    parser.add_argument("drawings", nargs="+", help="sound drawings")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=500)
    parser.add_argument("--seconds", type=int, default=10)
    parser.add_argument("--megabytes", type=int, default=1024)
    parser.add_argument("--keep", help="folder for the drawings that fail")
    return run(parser.parse_args())


if __name__ == "__main__":
    sys.exit(main())
