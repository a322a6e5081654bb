// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdarg>
#include <string>

/// Formats `arguments` by a Windows wide format text: a plain %s is a wide text, %S and %hs are narrow ones, and I64
/// marks a 64-bit integer. An unknown conversion prints nothing and reads no argument. `arguments` stays with the
/// caller, who ends it.
std::wstring VnEmu_vswprintfV(const wchar_t* format, va_list arguments);

/// A wide text together with its UTF-8 form.
class CString {
public:
    CString() = default;

    /// Holds a copy of the null-terminated text; throws std::range_error when it has no UTF-8 form.
    CString(const wchar_t* text); // implicit: formats are passed as plain literals

    /// Replaces the text by the formatted arguments. Every "%s" of the format is read as "%ls" first, the one in
    /// "%%s" too, which therefore prints "%ls". Throws std::range_error when the result has no UTF-8 form, and the
    /// text is unchanged then.
    void Format(CString format, ...);

    /// The same for arguments that the caller has started, and ends.
    void FormatV(CString format, va_list arguments);

    /// The UTF-8 form of any null-terminated wide text; this text does not matter.
    std::string wideToString(const wchar_t* text) const;

    const std::wstring& wide() const { return m_wide; }
    const std::string& narrow() const { return m_narrow; }

private:
    std::wstring m_wide;
    std::string m_narrow;
};
