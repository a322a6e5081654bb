#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs what building and testing need from Debian's packages, and with "lint", "fuzz", "prove", "package" or "bench"
# what the script of that name needs too; asks for nothing when all of it is there.
set -euo pipefail

packages=(
    g++ cmake ninja-build pkg-config
    qtbase5-dev
    libdxflib-dev libdeflate-dev libharfbuzz-dev libpng-dev zlib1g-dev libcups2-dev
    libpolyclipping-dev
    libgtest-dev
    libbenchmark-dev
    poppler-utils qpdf libqpdf-dev cups-daemon hp2xx abigail-tools python3
    locales
    fonts-dejavu-core fonts-droid-fallback fonts-liberation2 fonts-osifont
)
[ "${1:-}" = lint ] && packages+=(clang clang-format clang-tidy doxygen)
[ "${1:-}" = prove ] && packages+=(gcovr valgrind)
[ "${1:-}" = package ] && packages+=(dpkg-dev file lintian mmdebstrap)
[ "${1:-}" = bench ] && packages+=(libboost-dev libglib2.0-dev xvfb xauth)
[ "${1:-}" = fuzz ] && packages+=(clang libclang-rt-14-dev)

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "packages are missing; run this as root, then start again:" >&2
        echo "apt-get update && apt-get install -y --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
