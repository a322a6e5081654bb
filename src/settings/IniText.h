// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <string_view>

namespace KelDriver::Internal {

/// The text without blanks, tabs, newlines, vertical tabs, form feeds and carriage returns at both ends.
inline std::string_view trimmed(std::string_view text) {
    const auto isSpace = [](char c) {
        return c == ' ' || (c >= '\t' && c <= '\r');
    };
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

inline bool startsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

/// A text parted at the first separator; both parts are trimmed.
struct SplitText {
    std::string_view left;
    std::string_view right;
    bool isFound;
};

/// One byte is skipped after the left part, whatever the separator's length.
inline SplitText splitText(std::string_view text, std::string_view separator) {
    const size_t position = separator.size() == 1 ? text.find(separator.front()) : text.find(separator);
    if (position == std::string_view::npos) {
        return {trimmed(text), {}, false};
    }
    return {trimmed(text.substr(0, position)), trimmed(text.substr(std::min(position + 1, text.size()))), true};
}

} // namespace KelDriver::Internal
