#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Compares all that a library exports with a list kept beside this script.
#   exported_symbols.sh LIST LIBRARY            shows the difference and fails when there is one
#   exported_symbols.sh --refresh LIST LIBRARY  writes the list anew
set -euo pipefail

exported() { nm -D --defined-only --demangle "$1" | cut -d ' ' -f 3- | LC_ALL=C sort -u; }

if [ "$1" = --refresh ]; then
    exported "$3" >"$2"
    exit 0
fi
if ! diff -u "$1" <(exported "$2"); then
    echo "the exported symbols changed; where that is meant: $(printf '%q ' "$0" --refresh "$1" "$2")"
    exit 1
fi
