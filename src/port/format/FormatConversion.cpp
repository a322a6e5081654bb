// SPDX-License-Identifier: BSD-3-Clause
#include "port/format/FormatConversion.h"

#include <algorithm>
#include <limits>

namespace KelDriver::Internal {

namespace {

/// False, with nothing taken, when the character is no flag.
bool takeFlag(const wchar_t*& position, FormatConversion& conversion, FormatArguments& arguments) {
    switch (*position) {
    case L'-':
        conversion.leftJustified = true;
        break;
    case L'+':
        conversion.showSign = true;
        break;
    case L'0':
        conversion.zeroFill = true;
        break;
    case L' ':
        break;
    case L'#':
        conversion.alternateForm = true;
        break;
    case L'*':
        conversion.width = arguments.take<int>();
        break;
    default:
        return false;
    }
    ++position;
    return true;
}

/// 0 without digits; the largest int where an int cannot hold the number.
int takeDigits(const wchar_t*& position) {
    int64_t value = 0;
    for (; *position >= L'0' && *position <= L'9'; ++position) {
        value = std::min<int64_t>(value * 10 + (*position - L'0'), std::numeric_limits<int>::max());
    }
    return static_cast<int>(value);
}

int takePrecision(const wchar_t*& position, FormatArguments& arguments) {
    constexpr int none = -1;
    if (*position != L'.') {
        return none;
    }
    ++position;
    if (*position != L'*') {
        return takeDigits(position);
    }
    ++position;
    return std::max(arguments.take<int>(), none);
}

LengthPrefix takePrefix(const wchar_t*& position) {
    if (position[0] == L'I' && position[1] == L'6' && position[2] == L'4') {
        position += 3;
        return LengthPrefix::Integer64;
    }
    if (position[0] == L'l' && position[1] == L'l') {
        position += 2;
        return LengthPrefix::Integer64;
    }
    switch (*position) {
    case L'h':
        ++position;
        return LengthPrefix::Narrow;
    case L'l':
    case L'L':
    case L'w':
        ++position;
        return LengthPrefix::Wide;
    case L'F':
    case L'N':
        ++position;
        return LengthPrefix::None;
    default:
        return LengthPrefix::None;
    }
}

} // namespace

FormatConversion takeConversion(const wchar_t*& position, FormatArguments& arguments) {
    FormatConversion conversion;
    while (takeFlag(position, conversion, arguments)) {
    }
    if (conversion.width == 0) {
        conversion.width = takeDigits(position);
    }
    conversion.precision = takePrecision(position, arguments);
    conversion.prefix = takePrefix(position);
    conversion.letter = *position;
    if (conversion.letter != L'\0') {
        ++position;
    }
    return conversion;
}

} // namespace KelDriver::Internal
