// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <string_view>

#include "port/CString.h"
#include "port/format/FloatText.h"
#include "port/format/FormatConversion.h"
#include "port/format/IntegerText.h"
#include "port/format/PaddedText.h"

using namespace KelDriver::Internal;

namespace {

/// Writes one conversion after another. Fill and float notation carry over from each to the next, as the state of a
/// stream does: part of the interface.
class WideFormatter {
public:
    WideFormatter(size_t expectedLength, va_list& arguments) : m_arguments(arguments) {
        m_text.reserve(expectedLength);
    }

    void putLiteral(std::wstring_view characters) { m_text.putEach(characters); }
    /// Reads the conversion after a %, moves `position` past it and writes its argument.
    void convert(const wchar_t*& position);
    std::wstring take() { return m_text.take(); }

private:
    void putConversion(const FormatConversion& conversion);
    void putCharacter(const FormatConversion& conversion);
    void putString(const FormatConversion& conversion, LengthPrefix plain);
    void putInteger(const FormatConversion& conversion, IntegerBase base);
    void putFloat(const FormatConversion& conversion, bool upperCase);
    /// A width brings its own fill; without one the fill stays.
    void setFillBesideWidth(const FormatConversion& conversion);

    PaddedText m_text;
    FormatArguments m_arguments;
    FloatNotation m_notation = FloatNotation::General;
};

void WideFormatter::convert(const wchar_t*& position) {
    const FormatConversion conversion = takeConversion(position, m_arguments);
    if (conversion.width != 0) {
        m_text.setWidth(conversion.width);
    }
    m_text.setLeftJustified(conversion.leftJustified);
    putConversion(conversion);
}

void WideFormatter::putConversion(const FormatConversion& conversion) {
    switch (conversion.letter) {
    case L'c':
    case L'C':
        return putCharacter(conversion);
    case L's':
        return putString(conversion, LengthPrefix::Wide);
    case L'S':
        return putString(conversion, LengthPrefix::Narrow);
    case L'd':
    case L'i':
    case L'u':
        return putInteger(conversion, IntegerBase::Decimal);
    case L'o':
        return putInteger(conversion, IntegerBase::Octal);
    case L'x':
        return putInteger(conversion, IntegerBase::LowerHex);
    case L'X':
        return putInteger(conversion, IntegerBase::UpperHex);
    case L'e':
    case L'E':
        m_notation = FloatNotation::Scientific;
        return putFloat(conversion, conversion.letter == L'E');
    case L'f':
        m_notation = FloatNotation::Fixed;
        return putFloat(conversion, false);
    case L'g':
    case L'G': // in the notation of the conversion before
        return putFloat(conversion, conversion.letter == L'G');
    case L'p':
        return m_text.put(
            unsignedText(reinterpret_cast<uintptr_t>(m_arguments.take<void*>()), IntegerBase::LowerHex, true));
    case L'n': // shows the number and stores nothing through the pointer
        return m_text.put(signedText(*m_arguments.take<const int*>(), conversion.showSign));
    default: // prints nothing and takes no argument; the width waits for what comes next
        return;
    }
}

void WideFormatter::putCharacter(const FormatConversion& conversion) {
    if (conversion.prefix == LengthPrefix::Integer64) {
        return;
    }
    const int value = m_arguments.take<int>();
    if (conversion.prefix == LengthPrefix::Narrow) { // a number, not a character: part of the interface
        m_text.put(signedText(value, conversion.showSign));
    } else {
        m_text.put(static_cast<wchar_t>(value));
    }
}

void WideFormatter::putString(const FormatConversion& conversion, LengthPrefix plain) {
    constexpr std::wstring_view nullText = L"(null)";
    const LengthPrefix form = conversion.prefix == LengthPrefix::None ? plain : conversion.prefix;
    if (form == LengthPrefix::Wide) {
        const auto* text = m_arguments.take<const wchar_t*>();
        m_text.put(text != nullptr ? std::wstring_view(text) : nullText);
    } else if (form == LengthPrefix::Narrow) {
        const auto* text = m_arguments.take<const char*>();
        m_text.put(std::string_view(text != nullptr ? text : "(null)"));
    }
}

void WideFormatter::putInteger(const FormatConversion& conversion, IntegerBase base) {
    if (conversion.width == 0 && conversion.precision >= 0) { // the least count of digits; ignored beside a width
        m_text.setWidth(conversion.precision);
        m_text.setFill(L'0');
    } else {
        setFillBesideWidth(conversion);
    }
    if (conversion.prefix == LengthPrefix::Integer64) { // never signed, not even in decimal
        m_text.put(unsignedText(m_arguments.take<uint64_t>(), base, conversion.alternateForm));
        return;
    }
    const int value = m_arguments.take<int>(); // always signed in decimal, for %u too
    m_text.put(base == IntegerBase::Decimal
                   ? signedText(value, conversion.showSign)
                   : unsignedText(static_cast<uint32_t>(value), base, conversion.alternateForm));
}

void WideFormatter::putFloat(const FormatConversion& conversion, bool upperCase) {
    setFillBesideWidth(conversion);
    FloatStyle style;
    style.notation = m_notation;
    if (conversion.precision >= 0) {
        style.precision = conversion.precision;
    }
    style.upperCase = upperCase;
    style.showSign = conversion.showSign;
    style.showPoint = conversion.alternateForm;
    m_text.put(floatText(m_arguments.take<double>(), style));
}

void WideFormatter::setFillBesideWidth(const FormatConversion& conversion) {
    if (conversion.width != 0) {
        m_text.setFill(conversion.zeroFill ? L'0' : L' ');
    }
}

std::wstring formatted(const wchar_t* format, va_list& arguments) {
    const std::wstring_view whole = format;
    constexpr size_t roomForArguments = 32;
    WideFormatter formatter(whole.size() + roomForArguments, arguments);
    const wchar_t* position = format;
    const wchar_t* const end = format + whole.size();
    while (position != end) {
        const wchar_t* const percent = std::find(position, end, L'%');
        formatter.putLiteral(std::wstring_view(position, static_cast<size_t>(percent - position)));
        if (percent == end) {
            break;
        }
        position = percent + 1;
        if (*position == L'%') {
            formatter.putLiteral(L"%");
            ++position;
        } else {
            formatter.convert(position);
        }
    }
    return formatter.take();
}

} // namespace

std::wstring VnEmu_vswprintfV(const wchar_t* format, va_list arguments) {
    va_list own; // the caller's list stays where it is
    va_copy(own, arguments);
    try {
        std::wstring text = formatted(format, own);
        va_end(own);
        return text;
    } catch (...) {
        va_end(own);
        throw;
    }
}
