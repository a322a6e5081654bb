#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Builds the Debian packages libkeldriver0, libkeldriver-dev and kelplot into build/packages and checks them: what is in
# them, that a driver can be built with them, and what lintian has to say.
set -euo pipefail
cd "$(dirname "$0")/.."
. tests/install/installation.sh

./scripts/install-deps.sh package
eval "$(DEB_BUILD_MAINT_OPTIONS=hardening=+all dpkg-buildflags --export=sh)" # the flags of Debian's own packages
export CXXFLAGS="$CXXFLAGS $CPPFLAGS"                                        # CMake reads the one variable only
cmake --preset package --fresh >/dev/null # or a folder that was configured before keeps its flags
cmake --build --preset package

# CPack leaves lists of what it installs, as if that were on this machine.
kept=$(mktemp -d)
keep_manifests build/package "$kept"
trap 'restore_manifests build/package "$kept"; rm -r "$kept"' EXIT
rm -rf build/packages
log=build/package/cpack.log
cpack --config build/package/CPackConfig.cmake -B build/packages &>$log || { cat $log; exit 1; }
# Shows what it warns of, but for libraries that have no version and scripts that are meant to be missing.
awk 'function tell() { if (text ~ /Warning/ && text !~ expected) printf "%s", text; text = "" }
    /^(CPack|CPackDeb|CMake)[: ]/ { tell() }
    { text = text $0 "\n" }
    END { tell() }' \
    expected="keldriver-[0-9]+/[A-Za-z]+[.]so' is[[:space:]]+missing soname|/debian/none/post(inst|rm)\n" $log
rm -r build/packages/_CPack_Packages
./tests/install/packages.sh "$PWD" build/packages
lintian --fail-on error,warning build/packages/*.deb
ls build/packages
