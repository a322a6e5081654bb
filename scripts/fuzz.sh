#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Feeds each parser damaged input for some minutes: scripts/fuzz.sh [MINUTES [TARGET...]], one minute and all targets
# unless told otherwise. Stops at the first finding, which it leaves in build/fuzz/findings. What it learns on the way
# stays in build/fuzz/corpus, where the next run starts from; fuzz/corpus stays as it is.
set -euo pipefail
cd "$(dirname "$0")/.."

minutes=${1:-1}
[[ $minutes =~ ^[1-9][0-9]*$ ]] || { echo "not a number of minutes: $minutes" >&2; exit 2; }
shift $(($# > 0))

./scripts/install-deps.sh fuzz
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
export QT_QPA_PLATFORM=offscreen
export LSAN_OPTIONS=suppressions=fuzz/leaks.supp:print_suppressions=0

programs=(build/fuzz/fuzz/*_fuzzer build/fuzz/fuzz/kelplot/*_fuzzer)
targets=("$@")
[ $# -gt 0 ] || mapfile -t targets < <(basename -s _fuzzer -a "${programs[@]}")
for target in "${targets[@]}"; do
    program=$(printf '%s\n' "${programs[@]}" | grep "/${target}_fuzzer$") ||
        { echo "no such target: $target" >&2; exit 2; }
    case $target in
    gpc | vnbase) words=coordinates ;;
    settings) words=ini ;;
    plot) words=dxf ;;
    *) words=$target ;;
    esac
    options=(-max_total_time=$((minutes * 60)) -timeout=20 -print_final_stats=1
        -dict="fuzz/dict/$words.dict")
    mkdir -p build/fuzz/findings "build/fuzz/corpus/$target"
    echo "== $target"
    "$program" "${options[@]}" -artifact_prefix="build/fuzz/findings/$target-" \
        "build/fuzz/corpus/$target" "fuzz/corpus/$target" 2>"build/fuzz/$target.log" ||
        { tail -n 60 "build/fuzz/$target.log"; exit 1; }
    grep -E '^(Done|stat::number_of_executed|stat::peak)' "build/fuzz/$target.log"
done
