#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs the dependencies, builds everything that is installed and plots the showcase drawing to PDF, PNG and SVG.
set -euo pipefail
cd "$(dirname "$0")/.."

drawing=examples/drawings/showcase.dxf
./scripts/install-deps.sh
cmake --preset release -DKELDRIVER_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build --preset release

mkdir -p plots # for what this script plots, and so replaces
for format in pdf png svg; do
    plot="plots/$(basename "$drawing" .dxf).$format"
    started=$(date +%s%N)
    ./build/release/kelplot/kelplot --paper A3 --margins 0 --scale 1:1 --force -o "$plot" "$drawing"
    printf '%s: plotted in %d ms\n' "$PWD/$plot" $((($(date +%s%N) - started) / 1000000))
done

cat <<END

kelplot is $PWD/build/release/kelplot/kelplot. To install it with the library:
    cmake --install build/release --prefix ~/.local
    ~/.local/bin/kelplot DRAWING.dxf
Without --prefix they go to /usr/local, which takes root.
END
case :$PATH: in
*:"$HOME/.local/bin":*) ;;
*) echo "For kelplot without its folder: export PATH=~/.local/bin:\$PATH" ;;
esac
