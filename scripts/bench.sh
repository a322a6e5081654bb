#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Builds the release preset and prints the tables of docs/performance.md:
#   bench.sh [--keep] [--quick] [--write] [TABLE...]
# without names all of them, in the order of that page; --plan only names them. Each row has its ratios, its goal and
# whether that is met. A ratio that is more than a tenth worse than the one in benchmarks/kept.json is marked and named
# at the end, and the exit status is 1. --keep writes the ratios of this run there, --write puts the tables into the
# page; --quick measures just enough to try the command, and compares nothing.
set -euo pipefail
cd "$(dirname "$0")/.."

case " $* " in
*" --help "* | *" -h "* | *" --plan "*) exec ./scripts/bench/report.py "$@" ;;
esac
./scripts/bench/report.py --plan "$@" >/dev/null # complains before anything is built

./scripts/install-deps.sh bench >&2
log=$(mktemp)
if ! { cmake --preset release && cmake --build --preset release; } >"$log" 2>&1; then
    tail -n 40 "$log" >&2
    rm "$log"
    exit 1
fi
rm "$log"
exec ./scripts/bench/report.py "$@"
