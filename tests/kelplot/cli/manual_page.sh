#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Compares the manual page of a kelplot with the one that is installed.
set -euo pipefail
"$1" --manual | diff "$(dirname "$0")/../../../kelplot/kelplot.1" - ||
    { echo "refresh it: kelplot --manual >kelplot/kelplot.1"; exit 1; }
