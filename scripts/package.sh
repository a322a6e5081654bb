#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Builds the Debian packages libkeldriver0, libkeldriver-dev and kelplot into build/packages and checks them: what is in
# them, that a driver can be built with them, and what lintian has to say.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh package
eval "$(DEB_BUILD_MAINT_OPTIONS=hardening=+all dpkg-buildflags --export=sh)" # the flags of Debian's own packages
export CXXFLAGS="$CXXFLAGS $CPPFLAGS"                                        # CMake reads the one variable only
cmake --preset package >/dev/null
cmake --build --preset package

rm -rf build/packages
# CPack warns of what it need not do: of libraries without a version, and of scripts that are not there.
cpack --config build/package/CPackConfig.cmake -B build/packages &>build/package/cpack.log ||
    { cat build/package/cpack.log; exit 1; }
rm -r build/packages/_CPack_Packages
./tests/install/packages.sh "$PWD" build/packages
lintian --fail-on error,warning build/packages/*.deb
ls build/packages
