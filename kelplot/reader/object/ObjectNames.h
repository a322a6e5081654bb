// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string_view>

/// Names under which dictionaries list what a plot needs.
namespace kelplot::objectNames {

constexpr std::string_view filters = "ACAD_FILTER";
constexpr std::string_view spatialFilter = "SPATIAL";
constexpr std::string_view invertedBorder = "ACAD_INVERTEDCLIP_ROUNDTRIP";
constexpr std::string_view layerColours = "ADSK_XREC_LAYER_COLOR_OVR";
constexpr std::string_view layerOpacities = "ADSK_XREC_LAYER_ALPHA_OVR";
constexpr std::string_view layerLineTypes = "ADSK_XREC_LAYER_LINETYPE_OVR";
constexpr std::string_view layerLineWeights = "ADSK_XREC_LAYER_LINEWT_OVR";

constexpr std::string_view all[] = {filters,        spatialFilter,  invertedBorder,  layerColours,
                                    layerOpacities, layerLineTypes, layerLineWeights};

} // namespace kelplot::objectNames
