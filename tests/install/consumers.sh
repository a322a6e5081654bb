#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs the library into an empty prefix and builds the example driver there: through the CMake package, through
# pkg-config, and through pkg-config once more after the prefix was moved.
set -euo pipefail
export LC_ALL=C.UTF-8
source=$1 build=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work # without settings of the user's own
prefix=$work/prefix

cmake --install "$build" --prefix "$prefix" >/dev/null
"$prefix/bin/kelplot" --version
grep -q $'^A0\t841x1189\t' <<<"$("$prefix/bin/kelplot" --list-papers)"
for licence in LICENSE COPYING.kelplot THIRD-PARTY.md; do
    test -s "$prefix/share/doc/KelDriver/$licence"
done
library=$(find "$prefix" -name libKelDriver.so)
libdir=$(dirname "$library")
grep -Eq 'SONAME +libKelDriver\.so\.[0-9]+$' <<<"$(objdump -p "$library")"

cmake -G Ninja -S "$source/examples/driver" -B "$work/example" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/example"
"$work/example/example_driver" "$work/example.png"
"$work/example/example_driver" "$work/example.pdf"
grep -aq '/Count 2$' "$work/example.pdf"
sed -i 's/^Title=.*/Title=Other title/' "$work/example/Drivers/driver.ini"
"$work/example/example_driver" "$work/other.png"
cmp "$work/example-2.png" "$work/other-2.png"
if cmp -s "$work/example.png" "$work/other.png"; then
    echo "the settings beside the driver do not reach its first page"
    exit 1
fi
usage=$(! QT_QPA_PLATFORM=none "$work/example/example_driver" 2>&1)
[[ $usage == usage:* ]]

# The same page comes from a driver that pkg-config tells where an installation's libraries are.
draws_the_same() {
    local flags
    export PKG_CONFIG_PATH=$1/pkgconfig
    read -ra flags <<<"$(pkg-config --cflags --libs keldriver)"
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
[ "$moved/include" -ef "$(pkg-config --define-prefix --variable=includedir keldriver)" ]
[ "$libdir" -ef "$(pkg-config --define-prefix --variable=libdir keldriver)" ]
