#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Builds the library as a host application does that takes it into its source tree and brings a polygon clipper and an
# image library of its own; then what others build against an installation of that, the reference driver among them.
set -euo pipefail
export LC_ALL=C.UTF-8
source=$1 build=$2
here=$source/tests/install
. "$source/tests/install/installation.sh"
work=$(mktemp -d)
keep_manifests "$build" "$work/manifests"
trap 'restore_manifests "$build" "$work/manifests"; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work # without settings of the user's own
prefix=$work/prefix

fail() {
    echo "$1"
    exit 1
}
configure() { cmake -G Ninja -S "$1" -B "$2" "${@:3}" >/dev/null; }

# How the library is compiled: the sources of a target as one, in an eighth of the time. Where two of them have come to
# use the same name, each for itself, they are compiled one by one.
as_one=(-DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 -DCMAKE_CXX_FLAGS=-w)
build_as_one() {
    cmake --build "$1" && return
    cmake "$1" -DCMAKE_UNITY_BUILD=OFF >/dev/null
    cmake --build "$1"
}
# And the reference driver, which is too large for that: without the window of its preview.
quickly=(-DKELDRIVER_PRECOMPILE_HEADERS=ON -DCMAKE_DISABLE_FIND_PACKAGE_Qt5Widgets=ON -DCMAKE_CXX_FLAGS=-w)

# build_own FILE SOURCE: one of the libraries of its own, which the host application has in its build tree.
build_own() {
    g++ -std=c++17 -shared -fPIC -I "$source/include" -I "$source/host/tarsel/include" -I "$source/host/imgo/include" \
        "$here/own/$2" -o "$own/$1" -Wl,-soname,"$1"
}
own=$work/host/own
mkdir -p "$own"
build_own libTarsel.so StandInClipper.cpp
build_own libImgo.so StandInImages.cpp
given=(-DKELDRIVER_TARSEL="$own/libTarsel.so" -DKELDRIVER_IMGO="$own/libImgo.so")

# A path that leads nowhere is told at once.
for variable in KELDRIVER_TARSEL KELDRIVER_IMGO; do
    said=$(configure "$source" "$work/$variable" -D$variable="$work/none.so" 2>&1) &&
        fail "$variable may lead nowhere"
    said=$(tr -s '[:space:]' ' ' <<<"$said") # CMake breaks lines at blanks
    [[ $said == *"$variable names no library"*"$work/none.so"* ]] || fail "$said"
done

# With everything else at its default, the reference driver links what was given.
configure "$source" "$work/default" "${given[@]}"
grep -qF "$own/libImgo.so" <<<"$(ninja -C "$work/default" -t query kelplot/kelplot)"

# As a subdirectory: the library and nothing that the host application has or does not want.
configure "$here/subdirectory" "$work/host" -DKELDRIVER_SOURCE="$source" "${given[@]}" "${as_one[@]}" \
    -DCMAKE_INSTALL_LIBDIR=lib/x86_64-linux-gnu
build_as_one "$work/host"
[[ $(cmake --build "$work/host" --target help) == *kelplot* ]] && fail "the reference driver came with the library"
[ -e "$work/host/keldriver/tests" ] && fail "the tests came with the library"
for folder in tarsel imgo; do
    [ -e "$work/host/keldriver/host/$folder" ] && fail "$folder is built although the host application brings its own"
done
"$work/host/host" "$work/host.png"

# Installed and moved, it finds the host application's libraries: through pkg-config and through the CMake package.
cmake --install "$work/host" --prefix "$work/installed" >/dev/null
mv "$work/installed" "$prefix"
libdir=$prefix/lib/x86_64-linux-gnu
export PKG_CONFIG_PATH=$libdir/pkgconfig
same_folder() { [ "$1" -ef "$(ask_pkg_config --define-prefix --variable="$2")" ]; }
same_folder "$prefix/include" includedir
same_folder "$libdir" libdir
mapfile -t flags < <(ask_pkg_config --cflags --libs)
g++ -std=c++17 -fPIC "$here/own/UseClipper.cpp" -o "$work/use_clipper" "${flags[@]}" "$own/libTarsel.so"
LD_LIBRARY_PATH=$libdir:$own "$work/use_clipper"
configure "$here/own" "$work/use" -DKelDriver_DIR="$libdir/cmake/KelDriver"
cmake --build "$work/use"
"$work/use/use_images"

# The reference driver on its own, against this installation and then, linked anew, against the usual one in its place.
configure "$source/kelplot" "$work/kelplot" -DKelDriver_DIR="$libdir/cmake/KelDriver" "${quickly[@]}"
cmake --build "$work/kelplot"
"$work/kelplot/kelplot" --version
grep -qF "$own/libImgo.so" <<<"$(ldd "$work/kelplot/kelplot")"

rm -r "$prefix"
cmake --install "$build" --prefix "$prefix" >/dev/null
libdir=$(dirname "$(find "$prefix" -name libKelDriver.so)")
configure "$source/kelplot" "$work/kelplot" -DKelDriver_DIR="$libdir/cmake/KelDriver"
cmake --build "$work/kelplot"
"$work/kelplot/kelplot" -o "$work/plate.pdf" "$source/examples/drawings/flange_plate.dxf"
test -s "$work/plate.pdf"
LD_LIBRARY_PATH=$libdir "$work/host/host" "$work/usual.png"
cmp "$work/host-2.png" "$work/usual-2.png"
if cmp -s "$work/host.png" "$work/usual.png"; then # whose first page shows a region that was combined
    fail "both pages come from the same polygon clipper"
fi
