// SPDX-License-Identifier: BSD-3-Clause

// Formats any text and compares the result with what a wide stream of the classic locale writes.
//
// Input: the format, a byte a character, up to a zero byte; then the arguments in the order in which the format takes
// them. The stream's side reads the format too, so every argument is passed in the type that its conversion expects;
// pointers of all types are passed as one, as the platform's calling convention allows. A format with more than
// three arguments or with numbers of more than three digits is left out.

#include <algorithm>
#include <cstdarg>
#include <cstdint>
#include <cwchar>
#include <locale>
#include <sstream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "FuzzInput.h"
#include "Require.h"
#include "port/CString.h"

namespace {

constexpr size_t mostArguments = 3;
using Argument = std::variant<int, uint64_t, double, const void*>;

std::wstring format(const wchar_t* text, ...) {
    va_list arguments;
    va_start(arguments, text);
    std::wstring result = VnEmu_vswprintfV(text, arguments);
    va_end(arguments);
    return result;
}

/// Passes the values behind `passed` one by one in their own types.
template <typename... Passed>
std::wstring formatWith(const wchar_t* text, const std::vector<Argument>& arguments, Passed... passed) {
    if constexpr (sizeof...(Passed) < mostArguments) {
        if (sizeof...(Passed) < arguments.size()) {
            return std::visit([&](auto next) { return formatWith(text, arguments, passed..., next); },
                              arguments[sizeof...(Passed)]);
        }
    }
    return format(text, passed...);
}

/// Thrown where a format asks for more than is passed here.
struct OutOfBounds {};

/// Formats through a stream, and records the arguments that it took from the input on the way.
class StreamFormatter {
public:
    explicit StreamFormatter(FuzzInput& input) : m_input(input) { m_stream.imbue(std::locale::classic()); }

    std::wstring formatted(const std::wstring& format);
    const std::vector<Argument>& arguments() const { return m_arguments; }

private:
    template <typename Value>
    Value take(Value value) {
        if (m_arguments.size() == mostArguments) {
            throw OutOfBounds();
        }
        m_arguments.emplace_back(value);
        return value;
    }
    int takeStar() { return take<int>(m_input.take<int8_t>()); }
    const void* takePointer(const void* target) { return take(m_input.take<uint8_t>() % 4 == 0 ? nullptr : target); }
    bool next(std::wstring_view expected);
    int number();

    void convert();
    void parse();
    void put();
    void putText(bool narrow);
    void putInteger();
    void putFloat();

    FuzzInput& m_input;
    std::vector<Argument> m_arguments;
    std::wostringstream m_stream;
    std::wstring_view m_rest;
    // the conversion at hand
    bool m_zeros = false;
    bool m_alternate = false;
    int m_width = 0;
    int m_precision = -1;
    std::wstring m_length;
    wchar_t m_letter = 0;
};

constexpr wchar_t wideText[] = L"w\u00efde";
constexpr char narrowText[] = "n\xe4rrow";
constexpr int counter = -1234;

bool StreamFormatter::next(std::wstring_view expected) {
    const bool found = m_rest.substr(0, expected.size()) == expected;
    m_rest.remove_prefix(found ? expected.size() : 0);
    return found;
}

int StreamFormatter::number() {
    const size_t digits = std::min(m_rest.find_first_not_of(L"0123456789"), m_rest.size());
    if (digits > 3) {
        throw OutOfBounds();
    }
    const std::wstring text(m_rest.substr(0, digits));
    m_rest.remove_prefix(digits);
    return text.empty() ? 0 : std::stoi(text);
}

std::wstring StreamFormatter::formatted(const std::wstring& format) {
    m_rest = format;
    while (!m_rest.empty()) {
        if (next(L"%%")) {
            m_stream << L'%';
        } else if (next(L"%")) {
            convert();
        } else {
            m_stream << m_rest.front();
            m_rest.remove_prefix(1);
        }
    }
    return m_stream.str();
}

void StreamFormatter::parse() {
    m_zeros = m_alternate = false;
    m_width = 0;
    m_precision = -1;
    m_length.clear();
    m_stream << std::right << std::noshowpos;
    for (; !m_rest.empty() && std::wcschr(L"-+0 #*", m_rest.front()) != nullptr; m_rest.remove_prefix(1)) {
        switch (m_rest.front()) {
        case L'-':
            m_stream << std::left;
            break;
        case L'+':
            m_stream << std::showpos;
            break;
        case L'*':
            m_width = takeStar();
            break;
        default:
            m_zeros = m_zeros || m_rest.front() == L'0';
            m_alternate = m_alternate || m_rest.front() == L'#';
        }
    }
    m_width = m_width != 0 ? m_width : number();
    if (next(L".")) {
        m_precision = next(L"*") ? takeStar() : number();
    }
    for (const wchar_t* length : {L"I64", L"ll", L"h", L"l", L"L", L"w", L"F", L"N"}) {
        if (m_length.empty() && next(length)) {
            m_length = length;
        }
    }
}

void StreamFormatter::convert() {
    parse();
    if (m_width != 0) {
        m_stream.width(m_width);
    }
    if (!m_rest.empty()) {
        m_letter = m_rest.front();
        m_rest.remove_prefix(1);
        put();
    }
}

void StreamFormatter::put() {
    const bool isLong = m_length == L"I64" || m_length == L"ll";
    const bool isWide = m_length == L"l" || m_length == L"L" || m_length == L"w";
    if (std::wcschr(L"diuoxX", m_letter) != nullptr) {
        putInteger();
    } else if (std::wcschr(L"eEfgG", m_letter) != nullptr) {
        putFloat();
    } else if (m_letter == L'p') {
        m_stream << takePointer(&counter);
    } else if (m_letter == L'n') {
        m_stream << std::dec << *static_cast<const int*>(take<const void*>(&counter));
    } else if (std::wcschr(L"sS", m_letter) != nullptr && !isLong) {
        putText(m_length == L"h" || (m_letter == L'S' && !isWide));
    } else if (std::wcschr(L"cC", m_letter) != nullptr && !isLong) {
        const int value = take<int>(m_input.take<uint16_t>()); // no end of file: a stream cannot write it
        if (m_length == L"h") {
            m_stream << std::dec << value;
        } else {
            m_stream << static_cast<wchar_t>(value);
        }
    }
}

void StreamFormatter::putText(bool narrow) {
    const void* const text = takePointer(narrow ? static_cast<const void*>(narrowText) : wideText);
    if (text == nullptr) {
        m_stream << L"(null)";
    } else if (narrow) {
        std::wstring widened;
        for (const auto* byte = static_cast<const unsigned char*>(text); *byte != 0; ++byte) {
            widened.push_back(*byte);
        }
        m_stream << widened;
    } else {
        m_stream << static_cast<const wchar_t*>(text);
    }
}

void StreamFormatter::putInteger() {
    m_stream << (m_letter == L'o' ? std::oct : m_letter == L'x' || m_letter == L'X' ? std::hex : std::dec);
    m_stream << (m_letter == L'X' ? std::uppercase : std::nouppercase)
             << (m_alternate ? std::showbase : std::noshowbase);
    if (m_width != 0) {
        m_stream.fill(m_zeros ? L'0' : L' ');
    } else if (m_precision >= 0) {
        m_stream.width(m_precision);
        m_stream.fill(L'0');
    }
    if (m_length == L"I64" || m_length == L"ll") {
        m_stream << take(m_input.take<uint64_t>());
    } else {
        m_stream << take(m_input.take<int>());
    }
}

void StreamFormatter::putFloat() {
    if (m_letter == L'e' || m_letter == L'E') {
        m_stream << std::scientific;
    } else if (m_letter == L'f') {
        m_stream << std::fixed;
    }
    m_stream << (m_letter == L'E' || m_letter == L'G' ? std::uppercase : std::nouppercase);
    m_stream << (m_alternate ? std::showpoint : std::noshowpoint);
    m_stream.precision(m_precision < 0 ? 6 : m_precision);
    if (m_width != 0) {
        m_stream.fill(m_zeros ? L'0' : L' ');
    }
    m_stream << take(m_input.take<double>());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    std::wstring text;
    for (auto byte = input.take<uint8_t>(); byte != 0; byte = input.take<uint8_t>()) {
        text.push_back(byte);
    }
    StreamFormatter stream(input);
    std::wstring expected;
    try {
        expected = stream.formatted(text);
    } catch (const OutOfBounds&) {
        return 0;
    }
    require(formatWith(text.c_str(), stream.arguments()) == expected);
    return 0;
}
