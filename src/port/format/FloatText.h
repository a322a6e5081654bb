// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <string>

namespace KelDriver::Internal {

enum class FloatNotation : uint8_t { General, Fixed, Scientific };

struct FloatStyle {
    FloatNotation notation = FloatNotation::General;
    int precision = 6;      ///< digits after the point; significant digits in general notation
    bool upperCase = false; ///< of no effect in fixed notation
    bool showSign = false;
    bool showPoint = false; ///< the point stays without digits after it, and general notation keeps trailing zeros
};

/// The number as the classic locale writes it, to the last digit of its exact value when that many are asked for.
std::string floatText(double value, const FloatStyle& style);

} // namespace KelDriver::Internal
