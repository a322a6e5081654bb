// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/groups/TextGroupReader.h"

#include <charconv>
#include <string>

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// `text` fit for a message: short, and printable.
std::string quoted(std::string_view text) {
    constexpr size_t longest = 24;
    std::string result = "'";
    for (const char c : text.substr(0, longest)) {
        result += c >= ' ' && c < '\x7F' ? c : '?';
    }
    return result + (text.size() > longest ? "...'" : "'");
}

} // namespace

TextGroupReader::TextGroupReader(std::istream& input, std::uintmax_t size, const Progress& progress)
    : m_window(input, size, progress) {
    skipByteOrderMark();
}

bool TextGroupReader::next(Group& group) {
    std::string_view codeText;
    if (!nextLine(codeText)) {
        return false;
    }
    codeText = trimmed(codeText);
    const auto result = std::from_chars(codeText.data(), codeText.data() + codeText.size(), group.code);
    if (result.ec != std::errc() || result.ptr != codeText.data() + codeText.size()) {
        // An empty line at the very end is no group.
        if (codeText.empty() && m_window.remaining() == 0) {
            return false;
        }
        refuseCode(codeText);
    }
    group.place = {FilePlace::Unit::line, m_line + 1};
    return nextLine(group.value);
}

std::uintmax_t TextGroupReader::mostGroupsLeft() const {
    constexpr std::uintmax_t smallestGroup = 5; // a code of two digits, a value of one, and the ends of both lines
    return m_window.remaining() / smallestGroup;
}

bool TextGroupReader::nextLine(std::string_view& line) {
    size_t end = 0;
    for (size_t searched = 0; (end = m_window.ahead().find('\n', searched)) == std::string_view::npos;) {
        searched = m_window.ahead().size();
        if (m_window.isFull()) {
            throw DrawingFault({FilePlace::Unit::line, m_line + 1}, "the line is too long for a drawing");
        }
        if (!m_window.more()) {
            break;
        }
    }
    const std::string_view ahead = m_window.ahead();
    if (ahead.empty()) {
        return false;
    }
    line = ahead.substr(0, end);
    m_window.skip(end == std::string_view::npos ? ahead.size() : end + 1);
    if (!line.empty() && line.back() == '\r') {
        line.remove_suffix(1);
    }
    ++m_line;
    return true;
}

void TextGroupReader::skipByteOrderMark() {
    if (m_window.need(byteOrderMark.size()) && m_window.ahead().substr(0, byteOrderMark.size()) == byteOrderMark) {
        m_window.skip(byteOrderMark.size());
    }
}

void TextGroupReader::refuseCode(std::string_view text) const {
    throw DrawingFault({FilePlace::Unit::line, m_line},
                       quoted(text) + " is not a group code, so this is not a drawing or a damaged one");
}

} // namespace kelplot
