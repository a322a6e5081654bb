#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Builds the library against a polygon clipper of the host application's own and sees that it is the one in use.
set -euo pipefail
source=$1
here=$source/tests/install/clipper
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir "$work/host"
g++ -std=c++17 -shared -fPIC -I "$source/host/tarsel/include" "$here/StandInClipper.cpp" -o "$work/host/libTarsel.so" \
    -Wl,-soname,libTarsel.so
cmake -G Ninja -S "$source" -B "$work/build" -DBUILD_TESTING=OFF -DKELDRIVER_BUILD_KELPLOT=OFF \
    -DKELDRIVER_TARSEL="$work/host/libTarsel.so" >/dev/null
cmake --build "$work/build" --target KelDriver
if [ -e "$work/build/host/tarsel" ]; then
    echo "the open clipper was built although the host brings its own"
    exit 1
fi
g++ -std=c++17 -fPIC -I "$source/include" "$here/UseClipper.cpp" -o "$work/use" -L "$work/build/src" -lKelDriver \
    -Wl,-rpath-link,"$work/host" $(pkg-config --cflags --libs Qt5Gui)
LD_LIBRARY_PATH="$work/build/src:$work/host" "$work/use"
