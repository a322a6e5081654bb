// SPDX-License-Identifier: GPL-2.0-or-later
#include "base/Numbers.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace kelplot {

std::optional<double> numberFromText(std::string_view text) {
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

std::optional<std::pair<double, double>> numberPairFromText(std::string_view text, std::string_view separators) {
    const size_t at = text.find_first_of(separators);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    const auto first = numberFromText(text.substr(0, at));
    const auto second = numberFromText(text.substr(at + 1));
    if (!first || !second) {
        return std::nullopt;
    }
    return std::make_pair(*first, *second);
}

std::optional<std::vector<double>> numberListFromText(std::string_view text) {
    std::vector<double> numbers;
    for (;;) {
        const size_t comma = text.find(',');
        const auto number = numberFromText(text.substr(0, comma));
        if (!number) {
            return std::nullopt;
        }
        numbers.push_back(*number);
        if (comma == std::string_view::npos) {
            return numbers;
        }
        text.remove_prefix(comma + 1);
    }
}

} // namespace kelplot
