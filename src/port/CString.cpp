// SPDX-License-Identifier: BSD-3-Clause
#include "port/CString.h"

#include <utility>

#include "port/Utf8.h"

using namespace KelDriver::Internal;

namespace {

/// A plain string conversion names a wide text. Only the literal pair is looked for, even in "%%s", where the result
/// prints "%ls": part of the interface.
void widenPlainStrings(std::wstring& format) {
    constexpr std::wstring_view plain = L"%s";
    constexpr std::wstring_view wide = L"%ls";
    for (size_t at = format.find(plain); at != std::wstring::npos; at = format.find(plain, at + wide.size())) {
        format.replace(at, plain.size(), wide);
    }
}

} // namespace

CString::CString(const wchar_t* text) : m_wide(text), m_narrow(toUtf8(m_wide)) {
}

void CString::Format(CString format, ...) { // NOLINT(performance-unnecessary-value-param)
    va_list arguments;
    va_start(arguments, format);
    try {
        FormatV(std::move(format), arguments);
    } catch (...) {
        va_end(arguments);
        throw;
    }
    va_end(arguments);
}

void CString::FormatV(CString format, va_list arguments) {
    widenPlainStrings(format.m_wide);
    std::wstring wide = VnEmu_vswprintfV(format.m_wide.c_str(), arguments);
    m_narrow = toUtf8(wide);
    m_wide = std::move(wide);
}

std::string CString::wideToString(const wchar_t* text) const { // NOLINT(readability-convert-member-functions-to-static)
    return toUtf8(text);
}
