#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Formats every C++ source in place; with --check, only tells what is out of order.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(-i)
[ "${1:-}" = --check ] && mode=(--dry-run --Werror)
git ls-files -z --cached --others --exclude-standard '*.h' '*.cpp' | xargs -0 clang-format "${mode[@]}"
