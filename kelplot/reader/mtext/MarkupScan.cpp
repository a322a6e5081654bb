// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/mtext/MarkupScan.h"

#include <charconv>

#include "reader/GroupValue.h"

namespace kelplot {

std::optional<double> takeNumber(std::string_view& text) {
    std::string_view digits = text;
    takeCharacter(digits, '+');
    const std::string_view unsignedDigits = digits.substr(!digits.empty() && digits.front() == '-' ? 1 : 0);
    // Words such as "inf" count as numbers elsewhere.
    constexpr std::string_view beginnings = "0123456789.";
    if (unsignedDigits.empty() || beginnings.find(unsignedDigits.front()) == std::string_view::npos) {
        return std::nullopt;
    }
    double value = 0.0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::invalid_argument) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<size_t>(result.ptr - text.data()));
    return result.ec == std::errc() ? saneReal(value) : 0.0;
}

std::optional<MarkupNumber> takeArgument(std::string_view& text) {
    const std::optional<double> value = takeNumber(text);
    if (!value) {
        return std::nullopt;
    }
    const MarkupNumber number{*value, takeCharacter(text, 'x')};
    takeCharacter(text, ';');
    return number;
}

std::optional<std::string_view> takeWords(std::string_view& text) {
    const size_t end = text.find_first_of(";\\{}");
    if (end == std::string_view::npos || text[end] != ';') {
        return std::nullopt;
    }
    const std::string_view words = text.substr(0, end);
    text.remove_prefix(end + 1);
    return words;
}

bool takeCharacter(std::string_view& text, char character) {
    if (text.empty() || text.front() != character) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

} // namespace kelplot
