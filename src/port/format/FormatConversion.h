// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdarg>
#include <cstdint>

namespace KelDriver::Internal {

/// The arguments of a variadic call, read one after another. The list is the caller's, who ends it.
class FormatArguments {
public:
    explicit FormatArguments(va_list& list) : m_list(list) {}

    template <typename Value>
    Value take() {
        return va_arg(m_list, Value); // NOLINT(clang-analyzer-valist.Uninitialized): its owner has started it
    }

private:
    va_list& m_list;
};

enum class LengthPrefix : uint8_t { None, Narrow, Wide, Integer64 };

/// One conversion of a Windows format text, its star arguments already taken.
struct FormatConversion {
    bool leftJustified = false;
    bool showSign = false;
    bool zeroFill = false;
    bool alternateForm = false;
    int width = 0;      ///< 0: none given; a negative one, from a star, is given and pads nothing
    int precision = -1; ///< -1: none given
    LengthPrefix prefix = LengthPrefix::None;
    wchar_t letter = L'\0'; ///< the terminator when the format ends inside the conversion
};

/// Reads the conversion after a % and moves `position` past its letter, or to the terminator of the format.
FormatConversion takeConversion(const wchar_t*& position, FormatArguments& arguments);

} // namespace KelDriver::Internal
