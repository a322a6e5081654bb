// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>
#include <string_view>

namespace KelDriver::Internal {

/// The UTF-8 form of a wide text of code points; no byte-order mark is added.
///
/// Throws std::range_error with the message "wstring_convert::to_bytes" when a character lies above 0x10FFFF. Lone
/// surrogates are converted like any other: names in paper files are 16-bit units and may hold them.
std::string toUtf8(std::wstring_view wide);

/// The code points of a UTF-8 text; a byte-order mark is a character like any other.
///
/// Throws std::range_error with the message "wstring_convert::from_bytes" when a sequence is cut short, longer
/// than need be, or ends above 0x10FFFF.
std::wstring fromUtf8(std::string_view utf8);

} // namespace KelDriver::Internal
