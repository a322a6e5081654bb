#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Changes the sources in one small place at a time and reports which changes no test notices.

The places are taken in turn from each kind of change: operators, constants, conditions turned round, arguments that
change places, and statements that are dropped. Each mutant is written into the tree, built and tested, first with the
tests of its own folder and, where it survives them, with all others; the source is restored afterwards, also on Ctrl-C.
The same seed and the same sources give the same mutants. Mutants that do not compile are counted apart and replaced by
others. What survived can be tried again when there are tests for it.

    scripts/mutate.py --seed 7 --count 60 src host >log
    scripts/mutate.py --again log src host
"""
import argparse
import os
import random
import re
import signal
import subprocess
import sys
from collections import Counter
from itertools import zip_longest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
MEMORY_LIMIT = 4 << 30  # bytes of a test process: a loop that no longer ends must not fill the machine

NOT_CODE = re.compile(
    r'''//[^\n]*|/\*.*?\*/                               # comments
      | R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"              # raw strings
      | "(?:\\.|[^"\\\n])*" | (?<!\d)'(?:\\.|[^'\\\n])+'  # strings and characters
      | ^[ \t]*\#(?:\\\n|[^\n])*                          # preprocessor lines
      | \bstatic_assert\b[^;]*; | \btemplate\s*<[^\n]*    # what is settled when the code compiles
    ''', re.VERBOSE | re.DOTALL | re.MULTILINE)

SWAPS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "+": "-", "-": "+", "&&": "||",
         "||": "&&", "+=": "-=", "-=": "+=", "true": "false", "false": "true"}
SYMMETRIC = re.compile(r"\b(?:min|max|swap|hypot)(?:<\w+>)?$")  # calls whose arguments may change places
# clang-format puts blanks around binary operators only, which tells them from template arguments and signs.
BINARY = re.compile(r"(?<= )(<=|>=|<|>|==|!=|\+=|-=|\+|-|&&|\|\|)(?= )")
BOOLEAN = re.compile(r"\b(true|false)\b")
INTEGER = re.compile(r"(?<![\w.'])\d+(?=[uUlL]*(?![\w.']))")
CONDITION = re.compile(r"\b(?:if|while) \(")
CALLEE = re.compile(r"(?<=\w)[({](?=[^\s)}])")
DECLARED = re.compile(r"(?:const )?[\w:]+(?:<.*>)?(?: const)?[&*]* [&*]*\w+(?: = .*)?")  # a parameter, not an argument
STATEMENT = re.compile(r"^(?P<indent> +)(?:(?:[\w:]+(?:\.|->|::))*\w+\(.*\)|[-\w.\[\]>*]+ [-+*/|&]?= .*);$",
                       re.MULTILINE)
OUTCOMES = ("killed", "survived", "timeout", "not compiled")


class Place:
    """A stretch of a source, the text to put there, and which kind of change that is."""

    def __init__(self, kind, path, start, end, text):
        self.kind, self.path, self.start, self.end, self.text = kind, path, start, end, text

    def mutated(self, source):
        return source[:self.start] + self.text + source[self.end:]

    def describe(self, source):
        line = source.count("\n", 0, self.start) + 1
        return f"{self.path.relative_to(ROOT)}:{line}: `{source[self.start:self.end].strip()}` -> `{self.text}`"


def code_of(source):
    """The source with blanks in place of everything that is not code, position for position."""
    return NOT_CODE.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), source)


def arguments(code, opening):
    """The (start, end) of each argument between the bracket at `opening` and the one that closes it."""
    depth, start, found = 0, opening + 1, []
    for position in range(opening, len(code)):
        depth += {"(": 1, "{": 1, "[": 1, ")": -1, "}": -1, "]": -1}.get(code[position], 0)
        if code[position] == ";":
            return []
        if depth == 0 or depth == 1 and code[position] == ",":
            found.append((start, position))
            start = position + 1
        if depth == 0:
            return found
    return []


def swapped_arguments(path, source, code):
    """The first two neighbours that can change places in each call and each braced value."""
    for match in CALLEE.finditer(code):
        if SYMMETRIC.search(code[max(0, match.start() - 30):match.start()]):
            continue
        found = [(start, end, source[start:end].strip()) for start, end in arguments(code, match.start())]
        if any(DECLARED.fullmatch(text) for _, _, text in found):
            continue
        for (start, _, one), (_, end, other) in zip(found, found[1:]):
            if one != other:
                yield Place("arguments", path, start, end, f"{other}, {one}")
                break


def places_in(path):
    source = path.read_text(encoding="utf-8")
    code = code_of(source)
    for pattern in (BINARY, BOOLEAN):
        for match in pattern.finditer(code):
            yield Place("operators", path, match.start(), match.end(), SWAPS[match.group()])
    for match in INTEGER.finditer(code):
        if not (len(match.group()) > 1 and match.group().startswith("0")):  # octal digits are not ours to add to
            yield Place("constants", path, match.start(), match.end(), str(int(match.group()) + 1))
    for match in CONDITION.finditer(code):
        found = arguments(code, match.end() - 1)
        if found:
            start, end = found[0][0], found[-1][1]
            yield Place("conditions", path, start, end, f"!({source[start:end]})")
    yield from swapped_arguments(path, source, code)
    for match in STATEMENT.finditer(code):
        yield Place("statements", path, match.end("indent"), match.end(), ";")


def sources_in(names):
    """Every C++ source in the given files and folders."""
    for name in names:
        path = (ROOT / name).resolve()
        if not path.exists():
            sys.exit(f"mutate.py: no such source: {name}")
        for file in [path] if path.is_file() else path.rglob("*"):
            if file.suffix in (".cpp", ".h"):
                yield file


def test_folder(path):
    """The folder under tests/ with the tests of a source's own folder; tests/ itself where there is none."""
    parts = path.relative_to(ROOT).parent.parts
    parts = [part for part in parts if part not in ("include", "keldriver")]
    parts = parts[1:] if parts[:1] == ["src"] else [part for part in parts if part != "src"]
    while parts and not (ROOT / "tests" / Path(*parts) / "CMakeLists.txt").exists():
        parts.pop()
    return Path("tests", *parts)


class Runner:
    """Builds and tests in a build folder."""

    def __init__(self, options):
        self.build, self.options = Path(options.build).resolve(), options

    def run(self, command):
        """The exit code, or None when time is up, and what was printed."""
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
        with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              env=environment, start_new_session=True) as process:
            try:
                output, _ = process.communicate(timeout=self.options.timeout * 10)
                return process.returncode, output
            except subprocess.TimeoutExpired:
                return None, ""
            finally:
                if process.poll() is None:
                    os.killpg(process.pid, signal.SIGKILL)

    def is_built(self, folder):
        return self.run(["ninja", "-C", str(self.build), "-j2", f"{folder}/all"])[0] == 0

    def killer(self, folder):
        """Who notices: a test's name, "timeout", or None."""
        command = ["ctest", "--test-dir", str(self.build / folder), "--stop-on-failure", "-j2", "--no-tests=error",
                   "--timeout", str(self.options.timeout), "-E", r"^install\."]
        code, output = self.run(["prlimit", f"--as={MEMORY_LIMIT}"] + command)
        if code == 0:
            return None
        failed = re.findall(r"^\s*\d+ - (\S+) \((.+)\)$", output, re.MULTILINE)
        if code is None or failed and failed[0][1] == "Timeout":
            return "timeout"
        if not failed:
            sys.exit("mutate.py: no test ran: " + output.strip()[-500:])
        return failed[0][0]

    def verdict(self, folders):
        """What becomes of the tree as it is: "compile", "timeout", a test's name or "SURVIVED"."""
        for folder in folders:
            if not self.is_built(folder):
                return "compile"
            found = self.killer(folder)
            if found:
                return found
        return "SURVIVED"


def try_out(place, runner, near):
    """Writes a mutant, judges it and restores the source."""
    source = place.path.read_text(encoding="utf-8")
    folders = [test_folder(place.path)] + ([] if near else [Path("tests")])
    try:
        place.path.write_text(place.mutated(source), encoding="utf-8")
        return runner.verdict(list(dict.fromkeys(folders)))
    finally:
        place.path.write_text(source, encoding="utf-8")


def survivors_in(log, places):
    """The places that a log of an earlier run tells as survived, wherever their files have moved to."""
    def without_folder(text):
        return re.sub(r"^\S*/", "", text)

    lines = Path(log).read_text(encoding="utf-8").splitlines()
    told = {without_folder(line.removesuffix(": SURVIVED")) for line in lines if line.endswith(": SURVIVED")}
    return [place for place in places
            if without_folder(place.describe(place.path.read_text(encoding="utf-8"))) in told]


def chosen_places(options):
    """All places in the order of the seed, one of each kind after the other until a kind has no more."""
    places = [place for path in sorted(set(sources_in(options.sources))) for place in places_in(path)]
    if options.again:
        return survivors_in(options.again, places)
    random.Random(options.seed).shuffle(places)
    kinds = {}
    for place in places:
        kinds.setdefault(place.kind, []).append(place)
    rounds = zip_longest(*(kinds[kind] for kind in sorted(kinds)))
    return [place for places in rounds for place in places if place]


def parsed_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("sources", nargs="*", default=["src", "include", "host", "kelplot"], help="files or folders")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=100, help="number of mutants that compile")
    parser.add_argument("--build", default=str(ROOT / "build" / "dev"), help="a configured build folder")
    parser.add_argument("--timeout", type=int, default=60, help="seconds of one test; a build has ten times as long")
    parser.add_argument("--again", metavar="LOG", help="only what survived in an earlier run, by its output")
    parser.add_argument("--near", action="store_true", help="only the tests of the mutant's own folder")
    parser.add_argument("--list", action="store_true", help="print the mutants and stop")
    return parser.parse_args()


def main():
    options = parsed_arguments()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("mutate.py: stopped"))
    places = chosen_places(options)
    if options.list:
        for place in places[:options.count]:
            print(place.describe(place.path.read_text(encoding="utf-8")))
        return
    runner = Runner(options)
    for folder in sorted({test_folder(place.path) for place in places}):
        verdict = runner.verdict([folder])
        if verdict != "SURVIVED":
            sys.exit(f"mutate.py: {folder} fails before any change: {verdict}")
    sums, kinds = Counter(), {}
    for place in places:
        if sums["killed"] + sums["survived"] + sums["timeout"] == options.count:
            break
        text = place.describe(place.path.read_text(encoding="utf-8"))
        verdict = try_out(place, runner, options.near)
        outcome = {"SURVIVED": "survived", "compile": "not compiled", "timeout": "timeout"}.get(verdict, "killed")
        for counter in (sums, kinds.setdefault(place.kind, Counter())):
            counter[outcome] += 1
        print(f"{text}: {'killed by ' + verdict if outcome == 'killed' else outcome.upper()}", flush=True)
    for kind, counter in [*sorted(kinds.items()), ("all", sums)]:
        tried = sum(counter[name] for name in OUTCOMES[:3])
        share = f", {100 * (tried - counter['survived']) // tried} % noticed" if tried else ""
        print(f"{kind}: " + ", ".join(f"{counter[name]} {name}" for name in OUTCOMES) + share)


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("mutate.py: stopped")
