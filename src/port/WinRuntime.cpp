// SPDX-License-Identifier: BSD-3-Clause
#include "port/WinRuntime.h"

#include <cstdarg>
#include <cwchar>

#include "port/CString.h"

int swprintf_s(wchar_t* destination, const wchar_t* format, ...) {
    CString text;
    va_list arguments;
    va_start(arguments, format);
    try {
        text.FormatV(format, arguments);
    } catch (...) {
        va_end(arguments);
        throw;
    }
    va_end(arguments);
    const std::wstring& wide = text.wide();
    std::wmemcpy(destination, wide.c_str(), wide.size() + 1);
    return static_cast<int>(wide.size());
}

int _wfopen_s(FILE** stream, const wchar_t* path, const wchar_t* mode) { // NOLINT(bugprone-reserved-identifier)
    const CString converter;
    *stream = std::fopen(converter.wideToString(path).c_str(), converter.wideToString(mode).c_str());
    return *stream != nullptr ? 0 : 1;
}
