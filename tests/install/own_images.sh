#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Builds the library against an image library of the host application's own and sees that it is the one in use.
set -euo pipefail
source=$1
here=$source/tests/install/images
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir "$work/host"
flags=(-std=c++17 -fPIC -I "$source/include" -I "$source/host/imgo/include")
g++ "${flags[@]}" -shared "$here/StandInImages.cpp" -o "$work/host/libImgo.so" -Wl,-soname,libImgo.so
cmake -G Ninja -S "$source" -B "$work/build" -DBUILD_TESTING=OFF -DKELDRIVER_BUILD_KELPLOT=OFF \
    -DKELDRIVER_IMGO="$work/host/libImgo.so" >/dev/null
cmake --build "$work/build" --target KelDriver
if [ -e "$work/build/host/imgo" ]; then
    echo "the open image library was built although the host brings its own"
    exit 1
fi
g++ "${flags[@]}" "$here/UseImages.cpp" -o "$work/use" -L "$work/build/src" -lKelDriver -L "$work/host" -lImgo \
    -Wl,-rpath-link,"$work/build/host/tarsel" $(pkg-config --cflags --libs Qt5Gui)
LD_LIBRARY_PATH="$work/build/src:$work/host:$work/build/host/tarsel" "$work/use"
