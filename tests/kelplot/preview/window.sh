#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Has kelplot --preview show a drawing on a screen in memory, and looks for the page on it.
# Usage: window.sh KELPLOT DRAWING. Exits with 77 where there is no such screen to be had.
set -euo pipefail
kelplot=$1 drawing=$2
for tool in Xvfb import convert compare; do
    command -v "$tool" >/dev/null || { echo "no $tool here"; exit 77; }
done
work=$(mktemp -d)
pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    wait
    rm -rf "$work"
}
trap cleanup EXIT

# Without a screen it says so.
said=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$kelplot" --preview "$drawing" 2>&1) && exit 1
[[ $said == *"there is no display"* ]] || { echo "$said" >&2; exit 1; }

exec 5>"$work/display"
Xvfb -displayfd 5 -screen 0 1200x840x24 -nolisten tcp >/dev/null 2>&1 &
pids+=($!)
for _ in {1..100}; do [ -s "$work/display" ] && break; sleep 0.1; done
DISPLAY=:$(cat "$work/display")
export DISPLAY
unset QT_QPA_PLATFORM
"$kelplot" --preview "$drawing" &
pids+=($!)

# The page is drawn when the screen holds what the plot of it holds: the plot is white at the same places, and dark.
"$kelplot" --quiet --format png --dpi 50 -o "$work/page.png" "$drawing"
for _ in {1..60}; do
    sleep 0.5
    import -silent -window root "$work/screen.png"
    # The page is the one large white area. It is cut out and made as large as the plot.
    convert "$work/screen.png" -crop 880x700+0+60 +repage -fuzz 2% -fill black +opaque white -trim -format '%wx%h%O' \
        info: >"$work/place" 2>/dev/null || continue
    place=$(cat "$work/place")
    convert "$work/screen.png" -crop 880x700+0+60 +repage -crop "$place" +repage -resize "$(identify -format '%wx%h!' "$work/page.png")" \
        "$work/shown.png"
    likeness=$(compare -metric NCC "$work/shown.png" "$work/page.png" null: 2>&1 || true)
    if awk -v likeness="$likeness" 'BEGIN { exit !(likeness > 0.8) }'; then
        echo "the page is on the screen: $place, likeness $likeness"
        exit 0
    fi
done
echo "the page does not appear on the screen; likeness ${likeness:-none}" >&2
exit 1
