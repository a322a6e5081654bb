#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Looks into the Debian packages of a folder: what they ask for, and whether kelplot runs and a driver can be built from
# what is in them.
#   packages.sh SOURCE FOLDER
set -euo pipefail
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen
source=$1 packages=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work XDG_CACHE_HOME=$work # without anything of the user's own

fail() {
    echo "$1"
    exit 1
}
# needs PACKAGE PATTERN...: the package depends on each.
needs() {
    local asked
    asked=$(dpkg-deb -f "$packages/$1"_*.deb Depends)
    for pattern in "${@:2}"; do
        [[ ", $asked," == *', '$pattern,* ]] || fail "$1 asks for $asked, not for $pattern"
    done
}
version=$(sed -n '1s/.*(\(.*\)).*/\1/p' "$source/packaging/debian/changelog")
needs libkeldriver0 'libqt5gui5 *' 'libpolyclipping22 *' 'libstdc++6 *'
needs libkeldriver-dev "libkeldriver0 (= $version)" 'qtbase5-dev *'
needs kelplot "libkeldriver0 (= $version)" 'libdxflib3 *' 'libcups2 *' 'libqt5widgets5 *'

for package in libkeldriver0 libkeldriver-dev kelplot; do
    dpkg-deb -x "$packages/$package"_*.deb "$work/root"
    dpkg-deb -c "$packages/$package"_*.deb | awk '$1 !~ /^d/ { print $6 }' >>"$work/files"
    documents=$work/root/usr/share/doc/$package
    [ -s "$documents/copyright" ] || fail "$package has no copyright"
    grep -q "($version)" <<<"$(zcat "$documents/changelog.Debian.gz")" || fail "$package: no changelog of $version"
done
twice=$(sort "$work/files" | uniq -d)
[ -z "$twice" ] || fail "in two packages: $twice"
grep -qx "libKelDriver 0 libkeldriver0 (.*)" <<<"$(dpkg-deb -I "$packages"/libkeldriver0_*.deb shlibs)"

# Programs and libraries find one another.
root=$work/root/usr
for file in "$root"/bin/* "$root"/lib/*/libKelDriver.so "$root"/lib/*/keldriver-*/{libTarsel,libImgo,vnbase}.so; do
    [ -e "$file" ] || fail "there is no $file"
    missing=$(ldd "$file" | grep 'not found' || true)
    [ -z "$missing" ] || fail "$file: $missing"
done
zcat "$root/share/man/man1/kelplot.1.gz" | cmp - "$source/kelplot/kelplot.1"
"$root/bin/kelplot" --paper A3 -o "$work/plate.pdf" "$root/share/doc/kelplot/examples/drawings/flange_plate.dxf"
test -s "$work/plate.pdf"

cmake -G Ninja -S "$root/share/doc/libkeldriver-dev/examples/driver" -B "$work/example" \
    -DCMAKE_PREFIX_PATH="$root" >/dev/null
cmake --build "$work/example" >/dev/null
"$work/example/example_driver" "$work/example.png"
test -s "$work/example.png"
echo "$packages: $version, complete"
