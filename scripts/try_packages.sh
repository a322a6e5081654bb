#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Has apt install the packages of build/packages in a fresh Debian, and tries them there as a user without rights or a
# locale. Tells each thing that holds; ends with 77 where no fresh Debian can be made.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() { # text, status
    echo "$1" >&2
    exit "${2:-1}"
}
packages=(build/packages/*.deb)
[ -e "${packages[0]}" ] || fail "build/packages has no packages: ./scripts/package.sh makes them"
[ "$(id -u)" -eq 0 ] || fail "only root can do this: it installs and runs programs in another root folder" 77
command -v mmdebstrap >/dev/null || fail "mmdebstrap is missing: ./scripts/install-deps.sh package installs it" 77

work=$(mktemp -d)
trap 'rm -rf --one-file-system "$work"' EXIT
chmod 711 "$work" # apt downloads as a user of its own
root=$work/root
# Of this machine's sources those of Debian itself; keys of others are not in the new root.
mapfile -t sources < <(grep -lEs '^(deb|URIs:).*/debian' /etc/apt/sources.list{,.d/*.list,.d/*.sources})
mmdebstrap --mode=root --variant=apt --skip=cleanup/apt --include=g++,cmake,make,pkg-config,fonts-dejavu-core \
    bookworm "$root" "${sources[@]}" &>"$work/log" ||
    fail "$(tail -n 20 "$work/log")"$'\n'"no fresh Debian could be made; is there a network?" 77
echo "Debian $(cat "$root/etc/debian_version") is fresh"

# enter COMMAND...: runs in the new root, where only what runs there sees its /proc.
enter() { unshare --mount --pid --fork --kill-child --mount-proc="$root/proc" chroot "$@"; }
mkdir "$root/packages"
cp "${packages[@]}" "$root/packages"
enter "$root" sh -c 'DEBIAN_FRONTEND=noninteractive apt-get install --yes --no-install-recommends /packages/*.deb' \
    &>"$work/log" || fail "$(tail -n 40 "$work/log")"
echo "apt installs ${packages[*]##*/}"

enter "$root" useradd --create-home plotter
home=$root/home/plotter
as_user() { # script
    enter --userspec=plotter:plotter "$root" env -i PATH=/usr/bin:/bin HOME=/home/plotter \
        TMPDIR=/home/plotter/temporary QT_QPA_PLATFORM=offscreen sh -ec "cd; $1" >"$work/log" 2>&1 || fail "$(cat "$work/log")"
}
as_user 'mkdir temporary cmake pkg-config plots'
touch "$work/mark"
examples=/usr/share/doc/libkeldriver-dev/examples/driver

as_user "cmake -S $examples -B cmake && cmake --build cmake"
echo "the example is built through CMake"
as_user "cp -r $examples/Drivers pkg-config
    g++ -std=c++17 -fPIC $examples/main.cpp -o pkg-config/example_driver \$(pkg-config --cflags --libs keldriver)"
echo "the example is built through pkg-config"

for build in cmake pkg-config; do
    as_user "cd $build; ./example_driver plate.pdf; ./example_driver plate.png"
    sed -i '/^\/CreationDate /d' "$home/$build/plate.pdf" # the one thing that may differ
    grep -aq '/Count 2$' "$home/$build/plate.pdf" || fail "plate.pdf of $build is not two pages"
done
for page in plate.pdf plate.png plate-2.png; do
    cmp "$home/cmake/$page" "$home/pkg-config/$page"
done
echo "both plot the same pages as PDF and PNG"

as_user 'cd plots; cp /usr/share/doc/kelplot/examples/drawings/showcase.dxf "Entwürfe 1.dxf"; kelplot Entw*.dxf'
grep -q 'Lagerdeckel' <<<"$(pdftotext "$home/plots/Entwürfe 1.pdf" -)" || fail "the plotted drawing lacks its texts"
echo "kelplot plots a drawing in a folder of the user's"
written=$(find "$root" -xdev -newer "$work/mark" ! -path "$home" ! -path "$home/*" ! -path "$root/proc")
[ -z "$written" ] || fail "written outside the user's folders: $written"
beside=$(find "$home" -newer "$work/mark" -type f ! -path "$home/cmake/*" ! -path "$home/pkg-config/*" \
    ! -path "$home/.cache/*" ! -name 'Entwürfe 1.*')
[ -z "$beside" ] || fail "written beside the output: $beside"
echo "nothing is written elsewhere"
