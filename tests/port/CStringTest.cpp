// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "port/CString.h"
#include "port/Utf8.h"
#include "port/WinRuntime.h"
#include "support/TemporaryDirectory.h"

using namespace KelDriver::Internal;

namespace {

TEST(Utf8, ConvertsBothWays) {
    const std::pair<wchar_t, const char*> rows[] = {
        {0x7F, "\x7F"},
        {0x80, "\xC2\x80"},
        {0x7FF, "\xDF\xBF"},
        {0x800, "\xE0\xA0\x80"},
        {0xD800, "\xED\xA0\x80"},
        {0xFEFF, "\xEF\xBB\xBF"},
        {0xFFFF, "\xEF\xBF\xBF"},
        {0x10000, "\xF0\x90\x80\x80"},
        {0x10FFFF, "\xF4\x8F\xBF\xBF"},
    };
    for (const auto& [code, form] : rows) {
        const std::wstring wide{L'a', code, L'z'};
        const std::string bytes = "a" + std::string(form) + "z";
        EXPECT_EQ(toUtf8(wide), bytes) << static_cast<int>(code);
        EXPECT_EQ(fromUtf8(bytes), wide) << static_cast<int>(code);
    }
    EXPECT_EQ(toUtf8(std::wstring(2, L'\0')), std::string(2, '\0'));
}

template <typename Convert>
std::string errorOf(Convert convert) {
    try {
        convert();
    } catch (const std::range_error& error) {
        return error.what();
    }
    return "";
}

TEST(Utf8, RefusesWhatHasNoOtherForm) {
    for (const int code : {0x110000, -1}) {
        EXPECT_EQ(errorOf([code] { toUtf8(std::wstring(1, code)); }), "wstring_convert::to_bytes") << code;
    }
    for (const char* bytes :
         {"\x80", "a\xC3", "\xE2\x82", "\xE2(\x82", "\xC0\x80", "\xE0\x80\x80", "\xF4\x90\x80\x80", "\xFF"}) {
        EXPECT_EQ(errorOf([bytes] { fromUtf8(bytes); }), "wstring_convert::from_bytes")
            << testing::PrintToString(bytes);
    }
}

TEST(CString, FormatsBothFormsOrKeepsItsText) {
    CString text;
    text.Format(L"%s=%5s %%s \u00e9", L"\u00fc", L"ab");
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(text.wide(), L"\u00fc=   ab %ls \u00e9");
        EXPECT_EQ(text.narrow(), "\xC3\xBC=   ab %ls \xC3\xA9");
        EXPECT_EQ(errorOf([&] { text.Format(L"%c", -1); }), "wstring_convert::to_bytes");
    }
    EXPECT_EQ(CString(L"\u00fc").narrow(), "\xC3\xBC");
}

TEST(WinRuntime, WritesTextAndTerminator) {
    wchar_t buffer[] = L"##########";
    EXPECT_EQ(swprintf_s(buffer, L"%s%c%d", L"a", 0, 42), 4);
    EXPECT_EQ(std::wstring(buffer, 6), (std::wstring{L'a', L'\0', L'4', L'2', L'\0', L'#'}));
}

TEST(WinRuntime, OpensFilesByWidePath) {
    const TemporaryDirectory directory;
    const std::wstring path = fromUtf8(directory.path("\xC3\xA9\xE6\xBC\xA2"));
    FILE* stream = nullptr;
    ASSERT_EQ(_wfopen_s(&stream, path.c_str(), L"wb"), 0);
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(std::fclose(stream), 0);
    EXPECT_TRUE(directory.exists("\xC3\xA9\xE6\xBC\xA2"));
    EXPECT_EQ(_wfopen_s(&stream, (path + L"/none").c_str(), L"rb"), 1);
    EXPECT_EQ(stream, nullptr);
}

} // namespace
