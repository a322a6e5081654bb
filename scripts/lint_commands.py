#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Picks one compile command for each source of this project out of those of a build folder.

Usage: lint_commands.py <build folder> <new folder>

A source that several targets share has several commands there, and a generated one is not what we maintain. Writes
the choice to compile_commands.json in the new folder, and to standard output, each followed by a NUL, as shell
commands that only check the source. Fails when a source has no command, which means that nothing builds it.
"""
import json
import pathlib
import re
import subprocess
import sys


def sources():
    listing = ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard", "--deduplicate", "*.cpp"]
    names = subprocess.run(listing, check=True, capture_output=True, text=True).stdout.split("\0")
    return [path for path in (pathlib.Path(name).resolve() for name in names if name) if path.exists()]


def main():
    build, chosen = (pathlib.Path(argument) for argument in sys.argv[1:])
    by_source = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        by_source.setdefault(pathlib.Path(entry["file"]).resolve(), entry)
    wanted = sources()
    orphans = [str(path) for path in wanted if path not in by_source]
    if orphans:
        sys.exit("no target compiles " + ", ".join(orphans))
    entries = [by_source[path] for path in wanted]
    chosen.mkdir(exist_ok=True)
    (chosen / "compile_commands.json").write_text(json.dumps(entries, indent=1))
    for entry in entries:
        check = re.sub(r" -o \S+ -c ", " -fsyntax-only ", entry["command"])
        sys.stdout.write(f"cd '{entry['directory']}' && {check}\0")


main()
