// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

namespace kelplot {

/// How a number is written in a dimension. The numbers of the units are those of drawings.
struct NumberForm {
    int unit = 2; ///< of lengths: 1 scientific, 2 decimal, 3 feet and decimal inches, 4 feet and inches, 5 fractions
    int digits = 4;
    int zeros = 0; ///< bits: 1 to 3 for feet and inches, 4 without leading zeros, 8 without trailing ones
    enum class Fractions { stacked, slanting, plain } fractions = Fractions::plain;
    std::string decimalSign = "."; ///< UTF-8
    double rounding = 0.0;         ///< not 0: to multiples of it
};

/// A length, with the codes of paragraphs where it has a fraction.
std::string lengthText(double value, const NumberForm& form);

/// An angle given in radians; its units are 0 degrees, 1 degrees with minutes and seconds, 2 grads, 3 radians,
/// 4 as 1.
std::string angleText(double radians, const NumberForm& form);

} // namespace kelplot
