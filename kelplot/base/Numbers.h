// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace kelplot {

/// Reads the whole of `text` as one finite number, with a point whatever the locale says.
std::optional<double> numberFromText(std::string_view text);

/// Reads two numbers with one of the characters `separators` between them.
std::optional<std::pair<double, double>> numberPairFromText(std::string_view text, std::string_view separators);

/// Reads numbers with commas between them; nothing when any of them is not a number.
std::optional<std::vector<double>> numberListFromText(std::string_view text);

} // namespace kelplot
