// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/GroupValue.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace kelplot {

namespace {

constexpr std::string_view blanks = " \t\r\n\v\f";
constexpr double largestReal = 1e100;

/// `text` from its number on: no blanks before it, no plus sign.
std::string_view fromNumber(std::string_view text) {
    text = trimmed(text);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
    }
    return text;
}

double parseReal(std::string_view text) {
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() ? value : 0.0;
}

} // namespace

std::string_view trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

double toReal(std::string_view text) {
    text = fromNumber(text);
    if (text.find(',') == std::string_view::npos) {
        return saneReal(parseReal(text));
    }
    // Programs that ran under a locale with decimal commas wrote them into their drawings.
    std::string pointed(text);
    std::replace(pointed.begin(), pointed.end(), ',', '.');
    return saneReal(parseReal(pointed));
}

int toInteger(std::string_view text) {
    text = fromNumber(text);
    int value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        return text.front() == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    return value;
}

double saneReal(double value) {
    // False for a NaN too.
    return std::abs(value) <= largestReal ? value : 0.0;
}

std::uint64_t toHandle(std::string_view text) {
    text = trimmed(text);
    std::uint64_t handle = 0;
    std::from_chars(text.data(), text.data() + text.size(), handle, 16);
    return handle;
}

} // namespace kelplot
