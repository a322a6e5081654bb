// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

/// Names under which dictionaries list what a plot needs.
namespace kelplot::objectNames {

constexpr std::string_view filters = "ACAD_FILTER";
constexpr std::string_view spatialFilter = "SPATIAL";
constexpr std::string_view invertedBorder = "ACAD_INVERTEDCLIP_ROUNDTRIP";
constexpr std::string_view layerOverrides[] = {"ADSK_XREC_LAYER_COLOR_OVR", "ADSK_XREC_LAYER_ALPHA_OVR",
                                               "ADSK_XREC_LAYER_LINETYPE_OVR", "ADSK_XREC_LAYER_LINEWT_OVR"};

inline bool isNeeded(std::string_view name) {
    return name == filters || name == spatialFilter || name == invertedBorder ||
           std::find(std::begin(layerOverrides), std::end(layerOverrides), name) != std::end(layerOverrides);
}

} // namespace kelplot::objectNames
