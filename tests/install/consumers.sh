#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs the library into an empty prefix and builds its consumers there: the example driver through the
# CMake package and through pkg-config, the reference driver on its own, and a project that takes the source
# tree as a subdirectory.
set -euo pipefail
source=$1 build=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

cmake --install "$build" --prefix "$prefix" >/dev/null
"$prefix/bin/kelplot" --version
XDG_CONFIG_HOME=$work "$prefix/bin/kelplot" --list-papers | grep -q $'^A0\t841x1189\t'
for licence in LICENSE COPYING.kelplot THIRD-PARTY.md; do
    test -s "$prefix/share/doc/KelDriver/$licence"
done
library=$(find "$prefix" -name 'libKelDriver.so')
libdir=$(dirname "$library")
objdump -p "$library" | grep -Eq 'SONAME +libKelDriver\.so\.[0-9]+$'

configure() { cmake -G Ninja -S "$1" -B "$2" -DCMAKE_PREFIX_PATH="$prefix" "${@:3}" >/dev/null; }

configure "$source/examples/driver" "$work/example"
cmake --build "$work/example"
"$work/example/example_driver" "$work/example.png"
test -s "$work/example.png"
usage=$(! QT_QPA_PLATFORM=none "$work/example/example_driver" 2>&1)
[[ $usage == usage:* ]]

export PKG_CONFIG_PATH=$libdir/pkgconfig
g++ -std=c++17 -fPIC "$source/examples/driver/main.cpp" -o "$work/example_pc" $(pkg-config --cflags --libs keldriver)
LD_LIBRARY_PATH=$libdir "$work/example_pc" "$work/example_pc.png"
cmp "$work/example.png" "$work/example_pc.png"

configure "$source/kelplot" "$work/kelplot"
cmake --build "$work/kelplot"
"$work/kelplot/kelplot" -o "$work/plate.pdf" "$source/examples/drawings/flange_plate.dxf"
test -s "$work/plate.pdf"

mkdir "$work/host"
cat >"$work/host/CMakeLists.txt" <<'HOST'
cmake_minimum_required(VERSION 3.21)
project(host LANGUAGES CXX)
set(BUILD_TESTING OFF)
add_subdirectory(${KELDRIVER_SOURCE} keldriver)
add_executable(host ${KELDRIVER_SOURCE}/examples/driver/main.cpp)
target_link_libraries(host PRIVATE KelDriver::KelDriver)
HOST
configure "$work/host" "$work/host-build" -DKELDRIVER_SOURCE="$source"
cmake --build "$work/host-build"
"$work/host-build/host" "$work/host.png"
cmp "$work/example.png" "$work/host.png"
if cmake --build "$work/host-build" --target help | grep -q kelplot; then
    echo "a project that takes the library as a subdirectory gets the reference driver too"
    exit 1
fi
