#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Runs the benchmarks of a release build and prints their tables; scripts/bench.sh builds first and calls this."""
import argparse
import io
import json
import sys
from pathlib import Path

from tables import SECTIONS

KEPT = Path("benchmarks/kept.json")
PAGE = Path("docs/performance.md")
NAMES = [table.name for tables in SECTIONS.values() for table in tables]


def parse_arguments():
    parser = argparse.ArgumentParser(prog="bench.sh", description="Prints the tables of docs/performance.md.")
    parser.add_argument("tables", nargs="*", metavar="TABLE", help="one of these, all when none is named: "
                        + ", ".join(NAMES))
    parser.add_argument("--keep", action="store_true", help=f"write the ratios to {KEPT}, to compare later runs with")
    parser.add_argument("--quick", action="store_true", help="measure just enough to try the command; nothing is kept "
                        "or compared")
    parser.add_argument("--write", action="store_true", help=f"put the tables into {PAGE}, too")
    parser.add_argument("--plan", action="store_true", help="only name the tables")
    parser.add_argument("--build", type=Path, default=Path("build/release"), help="folder of the build [%(default)s]")
    options = parser.parse_args()
    unknown = [name for name in options.tables if name not in NAMES]
    if unknown:
        parser.error(f"no such table: {', '.join(unknown)}; there are {', '.join(NAMES)}")
    if options.quick and (options.keep or options.write):
        parser.error("the figures of --quick are too rough to keep or to write")
    options.tables = options.tables or NAMES
    return options


def read_kept():
    return json.loads(KEPT.read_text(encoding="utf-8")) if KEPT.exists() else {}


def rounded(value):
    return float(f"{value:.4g}")


def kept_ratios(sheets):
    rows = {row.key: row.ratios() for sheet in sheets for row in sheet.rows}
    return {name: {side: rounded(value) for side, value in ratios.items()} for name, ratios in rows.items() if ratios}


def put_into_page(name, text):
    """Replaces what stands between the marks of a table."""
    page = PAGE.read_text(encoding="utf-8")
    start, end = f"<!-- bench {name} -->\n", f"<!-- end {name} -->\n"
    before, found, rest = page.partition(start)
    _, found_end, after = rest.partition(end)
    if not found or not found_end:
        raise SystemExit(f"{PAGE}: there are no marks for {name}")
    PAGE.write_text(f"{before}{start}\n{text}{end}{after}", encoding="utf-8")


def print_table(table, options, kept):
    """Measures and prints a table, and returns what became worse. Its new ratios take the place of the kept ones."""
    sheets = list(table.sheets(options))
    known = {} if options.keep or options.quick else kept.get(table.name, {})
    text = io.StringIO()
    worse = [f"{table.name}: {what}" for sheet in sheets for what in sheet.write(known, text)]
    kept[table.name] = kept_ratios(sheets)
    print(text.getvalue(), end="", flush=True)
    if options.write:
        put_into_page(table.name, text.getvalue())
    return worse


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
            worse += print_table(table, options, kept)
    if options.keep:
        kept = {name: kept[name] for name in NAMES if name in kept}
        KEPT.write_text(json.dumps(kept, indent=1, ensure_ascii=False) + "\n", encoding="utf-8")
    for text in worse:
        print(f"worse than kept: {text}", file=sys.stderr)
    return 1 if worse else 0


if __name__ == "__main__":
    sys.exit(main())
