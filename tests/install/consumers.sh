#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs the library's components into an empty prefix and builds the example driver there: through the CMake package,
# through pkg-config, and through pkg-config once more after the prefix was moved.
set -euo pipefail
export LC_ALL=C.UTF-8
source=$1 build=$2
. "$source/tests/install/installation.sh"
work=$(mktemp -d)
keep_manifests "$build" "$work/manifests"
trap 'restore_manifests "$build" "$work/manifests"; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work XDG_RUNTIME_DIR=$work # without settings of the user's own, or a warning of Qt
prefix=$work/prefix

fail() {
    echo "$1"
    exit 1
}
install_component() { cmake --install "$build" --prefix "$prefix" --component "$1" >/dev/null; }
files_in() { (cd "$1" && find . -type f,l | LC_ALL=C sort); }

# The library and what drivers are built with work without the reference driver.
install_component runtime
install_component development
[ -e "$prefix/bin" ] && fail "a program came with the library"
library=$(find "$prefix" -name libKelDriver.so)
libdir=$(dirname "$library")
grep -Eq 'SONAME +libKelDriver\.so\.[0-9]+$' <<<"$(objdump -p "$library")"
grep -qF "$libdir/keldriver-" <<<"$(ldd "$library" | grep libTarsel)" || fail "$(ldd "$library")"

cmake -G Ninja -S "$source/examples/driver" -B "$work/example" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/example"
"$work/example/example_driver" "$work/example.png"
said=$("$work/example/example_driver" "$work/example.pdf" 2>&1)
[ -z "$said" ] || { echo "$said"; exit 1; }
grep -aq '/Count 2$' "$work/example.pdf"
sed -i 's/^Title=.*/Title=Other title/' "$work/example/Drivers/driver.ini"
"$work/example/example_driver" "$work/other.png"
cmp "$work/example-2.png" "$work/other-2.png"
# The second page is not empty: it has its solid sample, and another look with margins that leave it a bare edge.
[ "$(pdftoppm -r 25.4 -f 2 -l 2 -x 24 -y 57 -W 1 -H 1 "$work/example.pdf" | tail -c 3 | od -An -tx1)" = " 00 00 00" ] ||
    fail "the second page of the PDF lacks its solid sample"
sed -i 's/^LeftEdge=.*/LeftEdge=1420/' "$work/example/Drivers/papers.ini"
"$work/example/example_driver" "$work/empty.png"
cmp -s "$work/example-2.png" "$work/empty-2.png" && fail "the second page of the PNG is empty"
if (ulimit -f 1; trap '' XFSZ; "$work/example/example_driver" "$work/example.pdf" 2>/dev/null); then
    echo "a disk without room for the pages is not noticed"
    exit 1
fi
grep -aq '/Count 2$' "$work/example.pdf" # still whole
if cmp -s "$work/example.png" "$work/other.png"; then
    echo "the settings beside the driver do not reach its first page"
    exit 1
fi
usage=$(! QT_QPA_PLATFORM=none "$work/example/example_driver" 2>&1)
[[ $usage == usage:* ]]

# All components together are the whole.
install_component kelplot
cmake --install "$build" --prefix "$work/whole" >/dev/null
diff <(files_in "$prefix") <(files_in "$work/whole") || fail "a file belongs to no component"
for licence in LICENSE COPYING.kelplot THIRD-PARTY.md; do
    test -s "$prefix/share/doc/KelDriver/$licence"
done

# The same page comes from a driver that pkg-config tells where an installation's libraries are.
draws_the_same() {
    local flags
    export PKG_CONFIG_PATH=$1/pkgconfig
    mapfile -t flags < <(ask_pkg_config --cflags --libs)
    g++ -std=c++17 -fPIC "$source/examples/driver/main.cpp" -o "$work/example_pc" "${flags[@]}"
    cp -r "$source/examples/driver/Drivers" "$work"
    LD_LIBRARY_PATH=$1 "$work/example_pc" "$work/example_pc.png"
    cmp "$work/example.png" "$work/example_pc.png"
    cmp "$work/example-2.png" "$work/example_pc-2.png"
}
draws_the_same "$libdir"
moved=$work/moved
mv "$prefix" "$moved"
libdir=$moved${libdir#"$prefix"}
draws_the_same "$libdir"
[ "$moved/include" -ef "$(ask_pkg_config --define-prefix --variable=includedir)" ]
[ "$libdir" -ef "$(ask_pkg_config --define-prefix --variable=libdir)" ]
test -e "$(ask_pkg_config --variable=standinsdir)/vnbase.so"
version=$(pkg-config --modversion keldriver)
[[ $("$moved/bin/kelplot" --version) == "kelplot $version"$'\n'*"libKelDriver $version "* ]]

# The installed kelplot finds its papers and writes to the output and the user's folders only, whoever runs it.
mkdir "$work/home" "$work/temporary" "$work/plots"
touch "$work/before"
plotter() {
    env -u XDG_RUNTIME_DIR HOME="$work/home" XDG_CACHE_HOME= TMPDIR="$work/temporary" "$moved/bin/kelplot" "$@"
}
has_paper() { grep -q "^$1"$'\t' <<<"$(plotter --list-papers)"; }
has_paper A0
plotter --paper A0 -o "$work/plots/plate.pdf" "$source/examples/drawings/flange_plate.dxf"
written=$(find "$moved" "$work/temporary" "$source/examples" -mindepth 1 -newer "$work/before")
[ -z "$written" ] || fail "kelplot wrote $written"
[ "$(ls "$work/plots")" = plate.pdf ] || fail "beside the plot there are $(ls "$work/plots")"
[ "$(find "$work/home" -type f | wc -l)" -eq 1 ] || fail "no papers are kept in the user's caches"
sed -i 's/^Name=A0$/Name=Poster/' "$moved/share/kelplot/Drivers/papers.ini"
has_paper Poster || fail "kelplot does not see that its papers were edited"

# An installation goes with what was put there, and no more.
touch "$work/whole/share/kelplot/Drivers/added.ini"
(cd "$build" && cmake -P "$source/cmake/KelDriverUninstall.cmake" >/dev/null 2>&1)
[ "$(files_in "$work/whole")" = ./share/kelplot/Drivers/added.ini ] || fail "left: $(files_in "$work/whole")"
[ ! -e "$work/whole/include/keldriver" ] || fail "an empty folder is left"
