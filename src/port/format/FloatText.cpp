// SPDX-License-Identifier: BSD-3-Clause
#include "port/format/FloatText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "port/UpperCase.h"

namespace KelDriver::Internal {

namespace {

/// No double has more digits after its point; all beyond are zeros.
constexpr int longestFraction = 1074;
using Digits = std::array<char, 1 + 309 + 1 + longestFraction + 1>;

std::string digitsOf(double value, std::chars_format format, int precision) {
    Digits digits;
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value, format, precision).ptr;
    return std::string(digits.data(), end);
}

/// Fixed or scientific notation with any number of digits after the point.
std::string withFraction(double value, std::chars_format format, int precision, bool showPoint) {
    std::string text = digitsOf(value, format, std::min(precision, longestFraction));
    const size_t exponent = std::min(text.find('e'), text.size());
    if (precision == 0 && showPoint) {
        text.insert(exponent, 1, '.');
    } else if (precision > longestFraction) {
        text.insert(exponent, static_cast<size_t>(precision - longestFraction), '0');
    }
    return text;
}

/// General notation that keeps its point and all its significant digits.
std::string generalWithPoint(double value, int precision) {
    constexpr int mostZeros = 4; // before the first digit in fixed notation
    const int significant = std::clamp(precision, 1, std::numeric_limits<int>::max() - mostZeros);
    const std::string rounded =
        digitsOf(value, std::chars_format::scientific, std::min(significant - 1, longestFraction));
    const int exponent = std::atoi(rounded.c_str() + rounded.find('e') + 1);
    if (exponent < -4 || exponent >= significant) {
        return withFraction(value, std::chars_format::scientific, significant - 1, true);
    }
    return withFraction(value, std::chars_format::fixed, significant - 1 - exponent, true);
}

std::string plainText(double value, const FloatStyle& style) {
    if (!std::isfinite(value)) {
        return digitsOf(value, std::chars_format::general, 0);
    }
    switch (style.notation) {
    case FloatNotation::Fixed:
        return withFraction(value, std::chars_format::fixed, style.precision, style.showPoint);
    case FloatNotation::Scientific:
        return withFraction(value, std::chars_format::scientific, style.precision, style.showPoint);
    case FloatNotation::General:
        break;
    }
    return style.showPoint ? generalWithPoint(value, style.precision)
                           : digitsOf(value, std::chars_format::general, std::min(style.precision, longestFraction));
}

} // namespace

std::string floatText(double value, const FloatStyle& style) {
    std::string text = plainText(value, style);
    if (style.showSign && text.front() != '-') {
        text.insert(0, 1, '+');
    }
    if (style.upperCase && style.notation != FloatNotation::Fixed) { // streams write "inf" in fixed notation
        std::transform(text.begin(), text.end(), text.begin(), upperCase);
    }
    return text;
}

} // namespace KelDriver::Internal
