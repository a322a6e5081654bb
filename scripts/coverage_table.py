#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Prints the coverage by folder as a Markdown table, from gcovr's JSON summary: coverage_table.py SUMMARY"""
import json
import sys
from collections import defaultdict
from pathlib import PurePath


def folder_of(name):
    """The folder that a row stands for: the rooms of src, host and kelplot, and the first level of everything else."""
    parts = PurePath(name).parts[:-1]
    return "/".join(parts[:2] if parts[0] in ("src", "host", "kelplot") else parts[:1])


def percent(covered, total):
    return f"{100 * covered / total:.1f}" if total else ""


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        files = json.load(file)["files"]
    sums = defaultdict(lambda: [0, 0, 0, 0])
    for entry in files:
        counts = [entry[key] for key in ("line_covered", "line_total", "branch_covered", "branch_total")]
        top = PurePath(entry["filename"]).parts[0]
        for folder in {folder_of(entry["filename"]), f"**{top}**"} - {top}:  # no row of its own for a tree's top
            sums[folder] = [a + b for a, b in zip(sums[folder], counts)]
    print("| folder | lines | lines (%) | branches | branches (%) |\n|---|---:|---:|---:|---:|")
    for folder, (lines, all_lines, branches, all_branches) in sorted(sums.items(), key=lambda x: x[0].strip("*")):
        print(f"| {folder} | {all_lines} | {percent(lines, all_lines)} | {all_branches} "
              f"| {percent(branches, all_branches)} |")


if __name__ == "__main__":
    main()
