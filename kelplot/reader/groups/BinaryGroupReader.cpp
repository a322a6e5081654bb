// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/groups/BinaryGroupReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

#include "base/LittleEndian.h"

namespace kelplot {

namespace {

using namespace std::string_view_literals;

/// What stands before it is the name of a program.
constexpr std::string_view mark = " Binary DXF\r\n\x1A\0"sv;
constexpr size_t markOffset = 7;

/// In files with codes of one byte, the byte before a code of two.
constexpr unsigned char longCodeFollows = 255;

enum class ValueKind { unknown, text, real, byte, int16, int32, int64, chunk };

/// From this code up to that of the next row values are of one kind.
struct CodeRange {
    int first;
    ValueKind kind;
};
constexpr CodeRange codeRanges[] = {
    {0, ValueKind::text},      {10, ValueKind::real},    {60, ValueKind::int16},     {80, ValueKind::unknown},
    {90, ValueKind::int32},    {100, ValueKind::text},   {110, ValueKind::real},     {150, ValueKind::unknown},
    {160, ValueKind::int64},   {170, ValueKind::int16},  {180, ValueKind::unknown},  {210, ValueKind::real},
    {240, ValueKind::unknown}, {270, ValueKind::int16},  {290, ValueKind::byte},     {300, ValueKind::text},
    {310, ValueKind::chunk},   {320, ValueKind::text},   {370, ValueKind::int16},    {390, ValueKind::text},
    {400, ValueKind::int16},   {410, ValueKind::text},   {420, ValueKind::int32},    {430, ValueKind::text},
    {440, ValueKind::int32},   {460, ValueKind::real},   {470, ValueKind::text},     {490, ValueKind::unknown},
    {999, ValueKind::text},    {1004, ValueKind::chunk}, {1005, ValueKind::text},    {1010, ValueKind::real},
    {1060, ValueKind::int16},  {1071, ValueKind::int32}, {1072, ValueKind::unknown},
};

ValueKind kindOf(int code) {
    const auto* const next = std::upper_bound(std::begin(codeRanges), std::end(codeRanges), code,
                                              [](int wanted, const CodeRange& range) { return wanted < range.first; });
    return next == std::begin(codeRanges) ? ValueKind::unknown : std::prev(next)->kind;
}

} // namespace

bool isBinaryDrawing(std::string_view beginning) {
    return beginning.size() > markOffset && beginning.substr(markOffset, mark.size()) == mark;
}

BinaryGroupReader::BinaryGroupReader(std::istream& input, std::uintmax_t size, const Progress& progress)
    : m_window(input, size, progress) {
    constexpr size_t markEnd = markOffset + mark.size();
    m_window.need(markEnd + 2);
    m_window.skip(std::min(markEnd, m_window.ahead().size()));
    // The second byte is the high one of the first code, or the first letter of its text.
    const std::string_view first = m_window.ahead();
    m_wideCodes =
        first.size() > 1 && static_cast<unsigned char>(first[0]) != longCodeFollows && first[1] >= 0 && first[1] < ' ';
}

bool BinaryGroupReader::next(Group& group) {
    const FilePlace codePlace{FilePlace::Unit::byte, m_window.consumed()};
    if (!readCode(group.code)) {
        return false;
    }
    group.place = {FilePlace::Unit::byte, m_window.consumed()};
    switch (kindOf(group.code)) {
    case ValueKind::text:
        return readText(group.value);
    case ValueKind::real:
        return readReal(group.value);
    case ValueKind::byte:
        return readInteger<std::int8_t>(group.value);
    case ValueKind::int16:
        return readInteger<std::int16_t>(group.value);
    case ValueKind::int32:
        return readInteger<std::int32_t>(group.value);
    case ValueKind::int64:
        return readInteger<std::int64_t>(group.value);
    case ValueKind::chunk:
        return readChunk(group.value);
    case ValueKind::unknown:
        break;
    }
    throw DrawingFault(codePlace, std::to_string(group.code) + " is not a group code, so the drawing is damaged");
}

std::uintmax_t BinaryGroupReader::mostGroupsLeft() const {
    constexpr std::uintmax_t smallestGroup = 3; // a code of one byte or two, and a text of one letter or a number
    return m_window.remaining() / smallestGroup;
}

bool BinaryGroupReader::readCode(int& code) {
    if (!m_wideCodes) {
        unsigned char shortCode = 0;
        if (!readNumber(shortCode)) {
            return false;
        }
        code = shortCode;
        if (shortCode != longCodeFollows) {
            return true;
        }
    }
    std::int16_t longCode = 0;
    const bool read = readNumber(longCode);
    code = longCode;
    return read;
}

bool BinaryGroupReader::readText(std::string_view& value) {
    size_t end = 0;
    for (size_t searched = 0; (end = m_window.ahead().find('\0', searched)) == std::string_view::npos;) {
        searched = m_window.ahead().size();
        if (m_window.isFull()) {
            throw DrawingFault({FilePlace::Unit::byte, m_window.consumed()}, "the text is too long for a drawing");
        }
        if (!m_window.more()) {
            return false;
        }
    }
    value = m_window.ahead().substr(0, end);
    m_window.skip(end + 1);
    // The value of a group in text form is a single line.
    constexpr std::string_view lineEnds = "\r\n";
    if (value.find_first_of(lineEnds) != std::string_view::npos) {
        m_text = value;
        std::replace_if(
            m_text.begin(), m_text.end(), [&](char c) { return lineEnds.find(c) != std::string_view::npos; }, ' ');
        value = m_text;
    }
    return true;
}

template <typename Number>
bool BinaryGroupReader::readNumber(Number& number) {
    if (!m_window.need(sizeof number)) {
        return false;
    }
    number = fromLittleEndian<Number>(m_window.ahead().substr(0, sizeof number));
    m_window.skip(sizeof number);
    return true;
}

/// The shortest text that gives the same number again.
bool BinaryGroupReader::readReal(std::string_view& value) {
    double number = 0.0;
    const bool read = readNumber(number);
    std::array<char, 32> digits{};
    auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    m_text.assign(digits.data(), end);
    value = m_text;
    return read;
}

template <typename Number>
bool BinaryGroupReader::readInteger(std::string_view& value) {
    Number number = 0;
    const bool read = readNumber(number);
    m_text = std::to_string(number);
    value = m_text;
    return read;
}

/// Bytes become two hexadecimal digits each, as text form has them.
bool BinaryGroupReader::readChunk(std::string_view& value) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    unsigned char count = 0;
    if (!readNumber(count) || !m_window.need(count)) {
        return false;
    }
    m_text.clear();
    for (const char c : m_window.ahead().substr(0, count)) {
        const auto byte = static_cast<unsigned char>(c);
        m_text += digits[byte >> 4];
        m_text += digits[byte & 0xF];
    }
    m_window.skip(count);
    value = m_text;
    return true;
}

} // namespace kelplot
