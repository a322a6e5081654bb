// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

namespace kelplot {

/// `text` without the blanks around it.
std::string_view trimmed(std::string_view text);

/// The number that `text` starts with. A text without one, and a value that no drawing can mean (not
/// finite, or beyond ±1e100, where squares of it would overflow), count as 0.
double toReal(std::string_view text);

/// The handle that `text` states in hexadecimal digits; 0 when there is none.
std::uint64_t toHandle(std::string_view text);

/// The whole number that `text` starts with, held within the range of `int`; 0 when there is none.
int toInteger(std::string_view text);

/// `value` as `toReal` would give it, for numbers that were parsed elsewhere.
double saneReal(double value);

} // namespace kelplot
