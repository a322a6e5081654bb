#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Plots drawings with two builds of kelplot and compares the pages byte by byte, in PDF, PNG and SVG. The time of its
# making, which a PDF states, is set to the same.
# Usage: compare_pages.sh <old kelplot> <new kelplot> <drawing>...
set -euo pipefail

[ $# -ge 3 ] || { sed -n '/^# Usage: /s///p' "$0" >&2; exit 1; }
old=$1 new=$2
shift 2
pages=$(mktemp -d)
trap 'rm -rf "$pages"' EXIT

# Messages and exit status belong to the result: kelplot says what it leaves out.
plot() { # kelplot, folder, format, drawing
    local status=0
    mkdir -p "$2"
    QT_QPA_PLATFORM=offscreen SOURCE_DATE_EPOCH=0 "$1" --format "$3" -t "$2" "$4" >/dev/null 2>"$2/messages" || status=$?
    sed -i "s|$2||; s|plotted in .*||" "$2/messages"
    echo "status $status" >>"$2/messages"
}

different=0
for drawing in "$@"; do
    for format in pdf png svg; do
        rm -rf "$pages/old" "$pages/new"
        plot "$old" "$pages/old" "$format" "$drawing" &
        plot "$new" "$pages/new" "$format" "$drawing"
        wait
        if ! diff -rq "$pages/old" "$pages/new" >/dev/null; then
            echo "different: $drawing as $format"
            different=$((different + 1))
        fi
    done
done
echo "$# drawings, $different pages differ"
[ "$different" -eq 0 ]
