// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <string_view>

namespace KelDriver::Internal {

/// Joins the characters on both its sides into one sign, where a font has it.
constexpr wchar_t zeroWidthJoiner = 0x200D;

/// True for characters that leave the paper blank: spaces, controls, joiners, variation selectors, direction marks.
/// Any font can show them.
bool isBlank(wchar_t character);

/// True when every character of the cluster is blank.
bool isBlank(std::wstring_view cluster);

/// Where the cluster ends that starts at `start`: a base character with all that must be shown with it in one font.
/// It holds one character at least.
size_t clusterEnd(std::wstring_view text, size_t start);

} // namespace KelDriver::Internal
