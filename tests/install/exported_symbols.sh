#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Compares what the library exports with the list kept beside this script.
#   exported_symbols.sh LIBRARY            shows the difference and fails when there is one
#   exported_symbols.sh --refresh LIBRARY  writes the list anew
set -euo pipefail
list="$(dirname "$0")/exported_symbols.txt"

# Weak functions and what belongs to the standard library are template instances; the linker adds marks of its own.
exported() {
    nm -D --defined-only --demangle "$1" | sed -nE 's/^[0-9a-f]+ [A-VX-Z] //p' |
        grep -vxE '__bss_start|_edata|_end|_init|_fini|std::.*' | LC_ALL=C sort -u
}

if [ "$1" = --refresh ]; then
    exported "$2" >"$list"
    exit 0
fi
if ! diff -u "$list" <(exported "$1"); then
    echo "the exported symbols changed; where that is meant: $0 --refresh $1"
    exit 1
fi
