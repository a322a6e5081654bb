#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Plots the drawings of docs/gallery anew, from the folder that holds them: scripts/make_gallery.sh FOLDER [KELPLOT]
set -euo pipefail
gallery=$(cd "$(dirname "$0")/../docs/gallery" && pwd)
folder=${1:?the folder with the drawings}
kelplot=$(realpath "${2:-$gallery/../../build/release/kelplot/kelplot}")
export QT_QPA_PLATFORM=offscreen

drawings=(
    fidelity_sheet
    mech_flange_r2013
    mech_build_plate
    arch_house_elev_r2000
    elec_schematic_r12
    mech_example00_r2010
    paper_text_viewports
)
for drawing in "${drawings[@]}"; do
    "$kelplot" --dpi 72 -o "$gallery/$drawing.png" "$folder/$drawing.dxf"
done
if command -v pngquant >/dev/null; then # smaller by two thirds
    pngquant --force --ext .png "$gallery"/*.png
fi
