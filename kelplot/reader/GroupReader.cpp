// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/GroupReader.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <istream>
#include <string>

#include "reader/DrawingReader.h"
#include "reader/GroupValue.h"

namespace kelplot {

namespace {

/// A line must fit; far above anything that programs write.
constexpr size_t bufferSize = size_t{1} << 18;
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

GroupReader::GroupReader(std::istream& input, std::uintmax_t size, const Progress& progress)
    : m_input(input), m_size(size), m_progress(progress), m_buffer(bufferSize) {
    skipByteOrderMark();
}

bool GroupReader::next(Group& group) {
    m_keepFrom = m_begin;
    std::string_view codeText;
    if (!nextLine(codeText)) {
        return false;
    }
    codeText = trimmed(codeText);
    const auto result = std::from_chars(codeText.data(), codeText.data() + codeText.size(), group.code);
    if (result.ec != std::errc() || result.ptr != codeText.data() + codeText.size()) {
        // An empty line at the very end is no group.
        if (codeText.empty() && remaining() == 0) {
            return false;
        }
        refuseCode(codeText);
    }
    group.line = m_line;
    m_keepFrom = m_begin;
    return nextLine(group.value);
}

bool GroupReader::nextLine(std::string_view& line) {
    size_t searched = m_begin;
    const void* newline = nullptr;
    while ((newline = std::memchr(m_buffer.data() + searched, '\n', m_end - searched)) == nullptr) {
        const size_t unread = m_end - m_begin;
        if (!refill()) {
            break;
        }
        searched = m_begin + unread;
    }
    if (newline == nullptr && m_begin == m_end) {
        return false;
    }
    const size_t lineEnd =
        newline == nullptr ? m_end : static_cast<size_t>(static_cast<const char*>(newline) - m_buffer.data());
    const size_t nextBegin = newline == nullptr ? m_end : lineEnd + 1;
    line = std::string_view(m_buffer.data() + m_begin, lineEnd - m_begin);
    if (!line.empty() && line.back() == '\r') {
        line.remove_suffix(1);
    }
    m_consumed += nextBegin - m_begin;
    m_begin = nextBegin;
    ++m_line;
    return true;
}

bool GroupReader::refill() {
    if (m_keepFrom > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_keepFrom, m_end - m_keepFrom);
        m_begin -= m_keepFrom;
        m_end -= m_keepFrom;
        m_keepFrom = 0;
    }
    if (m_end == m_buffer.size()) {
        throw DrawingFault(m_line + 1, "the line is too long for a drawing");
    }
    // A file that grows while it is read stays within the size it had.
    const auto wanted = std::min<std::uintmax_t>(m_buffer.size() - m_end, remaining() - (m_end - m_begin));
    m_input.read(m_buffer.data() + m_end, static_cast<std::streamsize>(wanted));
    const auto got = static_cast<size_t>(m_input.gcount());
    m_end += got;
    if (m_progress && got > 0) {
        m_progress(static_cast<double>(m_consumed) / static_cast<double>(m_size));
    }
    return got > 0;
}

void GroupReader::skipByteOrderMark() {
    if (refill() && std::string_view(m_buffer.data(), m_end).substr(0, byteOrderMark.size()) == byteOrderMark) {
        m_begin = byteOrderMark.size();
        m_consumed = byteOrderMark.size();
    }
}

void GroupReader::refuseCode(std::string_view text) const {
    throw DrawingFault(m_line, quoted(text) + " is not a group code, so this is not a drawing or a damaged one");
}

} // namespace kelplot
