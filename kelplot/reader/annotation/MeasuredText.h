// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/TextEncoding.h"
#include "reader/annotation/StyleValues.h"

namespace kelplot {

/// What a dimension measures: a length in drawing units, or an angle in radians.
struct Measurement {
    double value = 0.0;
    bool isAngle = false;
    const char* mark = ""; ///< stands before it where its style puts nothing there
};

/// The text of a dimension, in UTF-8 with the codes of paragraphs inside.
///
/// @param stated  as the file has it; "<>" in it stands for the measurement, and so does an empty one
std::string dimensionText(const Measurement& measurement, std::string_view stated, const StyleValues& style,
                          const TextEncoding& decoder);

} // namespace kelplot
