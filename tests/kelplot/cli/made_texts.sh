#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Compares what a kelplot prints of itself with the manual page and the completions that are installed.
set -euo pipefail
kelplot=$1
folder=$(dirname "$0")/../../../kelplot
stale=0
compare() {
    "$kelplot" "${@:2}" | diff "$folder/$1" - || { echo "refresh it: kelplot ${*:2} >kelplot/$1"; stale=1; }
}
compare kelplot.1 --manual
compare completions/kelplot --completion bash
compare completions/_kelplot --completion zsh
exit "$stale"
