#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Runs the benchmarks of a release build and prints their tables; scripts/bench.sh builds first and calls this."""
import argparse
import json
import sys
from pathlib import Path

from tables import SECTIONS

KEPT = Path("benchmarks/kept.json")
NAMES = [table.name for tables in SECTIONS.values() for table in tables]


def parse_arguments():
    parser = argparse.ArgumentParser(prog="bench.sh", description="Prints the tables of docs/performance.md.")
    parser.add_argument("tables", nargs="*", metavar="TABLE", help="one of these, all when none is named: "
                        + ", ".join(NAMES))
    parser.add_argument("--keep", action="store_true", help=f"write the ratios to {KEPT}, to compare later runs with")
    parser.add_argument("--quick", action="store_true", help="measure just enough to try the command; nothing is kept")
    parser.add_argument("--plan", action="store_true", help="only name the tables")
    parser.add_argument("--build", type=Path, default=Path("build/release"), help="folder of the build [%(default)s]")
    options = parser.parse_args()
    unknown = [name for name in options.tables if name not in NAMES]
    if unknown:
        parser.error(f"no such table: {', '.join(unknown)}; there are {', '.join(NAMES)}")
    if options.keep and options.quick:
        parser.error("the figures of --quick are too rough to keep")
    options.tables = options.tables or NAMES
    return options


def read_kept():
    return json.loads(KEPT.read_text(encoding="utf-8")) if KEPT.exists() else {}


def rounded(value):
    return float(f"{value:.4g}")


def kept_ratios(sheets):
    rows = {row.name: row.ratios() for sheet in sheets for row in sheet.rows}
    return {name: {side: rounded(value) for side, value in ratios.items()} for name, ratios in rows.items() if ratios}


def main():
    options = parse_arguments()
    if options.plan:
        print("\n".join(name for name in NAMES if name in options.tables))
        return 0
    kept = read_kept()
    worse = []
    for title, tables in SECTIONS.items():
        chosen = [table for table in tables if table.name in options.tables]
        if chosen:
            print(f"## {title}\n")
        for table in chosen:
            sheets = list(table.sheets(options))
            known = {} if options.keep else kept.get(table.name, {})
            worse += [f"{table.name}: {text}" for sheet in sheets for text in sheet.write(known, sys.stdout)]
            kept[table.name] = kept_ratios(sheets)
    if options.keep:
        kept = {name: kept[name] for name in NAMES if name in kept}
        KEPT.write_text(json.dumps(kept, indent=1, ensure_ascii=False) + "\n", encoding="utf-8")
    for text in worse:
        print(f"worse than kept: {text}", file=sys.stderr)
    return 1 if worse else 0


if __name__ == "__main__":
    sys.exit(main())
