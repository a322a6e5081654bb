// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <string>

namespace KelDriver::Internal {

enum class IntegerBase : uint8_t { Decimal, Octal, LowerHex, UpperHex };

/// The value in decimal digits.
std::string signedText(int32_t value, bool showSign);

/// The value in the digits of `base`; a zero never shows its base.
std::string unsignedText(uint64_t value, IntegerBase base, bool showBase);

} // namespace KelDriver::Internal
