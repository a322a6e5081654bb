// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/PrivateProfile.h"

#include <algorithm>
#include <clocale>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "support/TemporaryDirectory.h"

namespace {

/// Every character of a buffer, zeros shown as bars.
std::wstring shown(std::wstring buffer) {
    std::replace(buffer.begin(), buffer.end(), L'\0', L'|');
    return buffer;
}

std::wstring wide(const std::string& path) {
    return {path.begin(), path.end()};
}

// The buffer holds 12 characters, "zz" at first; the default is "dflt".
const struct {
    const char* name;
    const char* text;
    unsigned int size;
    int result;
    std::wstring buffer;
} strings[] = {
    {"TwoValues", "[s]\nk=a\nk=bc\n", 10, 5, L"a|bc||||||||"},
    {"SecondDoesNotFit", "[s]\nk=a\nk=bc\n", 4, 2, L"a|||||||||||"},
    {"ExactFit", "[s]\nk=a\nk=bc\n", 5, 5, L"a|bc||||||||"},
    {"SizeZeroCounts", "[s]\nk=a\nk=bc\n", 0, 5, L"zz||||||||||"},
    {"SizeZeroAppendsTheDefault", "[s]\n", 0, 8, L"zzdflt||||||"},
    {"FirstDoesNotFit", "[s]\nk=abc\nk=d\n", 3, 8, L"dflt||||||||"},
    {"OnlyQuotes", "[s]\nk=\"\"\"\nk=\n", 10, 8, L"dflt||||||||"},
    {"QuotesAreStripped", "[s]\nk=\"\"a\"b\"\nk=\"\nk=c\"\n", 12, 6, L"a\"b|c|||||||"},
    {"BytesAreCounted", "[s]\nk=\xC3\xA9\nk=b\n", 10, 5, L"\u00E9||b||||||||"},
    {"NotUtf8", "[s]\nk=\xFF\xFE\nk=b\n", 10, 5, L"|||b||||||||"},
    {"Malformed", "[s]\nk=a\njunk\n", 10, 8, L"dflt||||||||"},
};

} // namespace

TEST(PrivateProfile, FillsTheBuffer) {
    const TemporaryDirectory directory;
    const std::string before = std::setlocale(LC_CTYPE, nullptr);
    for (const auto& row : strings) {
        const std::wstring path = wide(directory.write("in.ini", row.text));
        for (const char* locale : {"C", "C.UTF-8"}) { // text is UTF-8 even where the host has set no locale
            ASSERT_NE(std::setlocale(LC_CTYPE, locale), nullptr);
            std::wstring buffer(12, L'\0');
            buffer[0] = buffer[1] = L'z';
            EXPECT_EQ(GetPrivateProfileStringEx(L"s", L"k", L"dflt", buffer.data(), row.size, path.c_str()), row.result)
                << row.name << " in " << locale;
            EXPECT_EQ(shown(buffer), row.buffer) << row.name << " in " << locale;
        }
    }
    std::setlocale(LC_CTYPE, before.c_str());
}

TEST(PrivateProfile, NullAsksForTheSize) {
    const TemporaryDirectory directory;
    const std::wstring path = wide(directory.write("in.ini", "[s]\nk=abc\nk=d\n"));
    for (const unsigned int size : {0U, 9U}) {
        EXPECT_EQ(GetPrivateProfileStringEx(L"s", L"k", L"", nullptr, size, path.c_str()), 6);
        EXPECT_EQ(GetPrivateProfileStringEx(L"s", L"none", L"", nullptr, size, path.c_str()), 8);
        EXPECT_EQ(GetPrivateProfileStringEx(nullptr, nullptr, nullptr, nullptr, size, nullptr), 8);
        EXPECT_EQ(GetPrivateProfileSectionNamesEx(nullptr, size, path.c_str()), 2);
    }
    EXPECT_EQ(GetPrivateProfileIntEx(nullptr, nullptr, 5, nullptr), 5);
    EXPECT_EQ(WritePrivateProfileStringEx(nullptr, nullptr, nullptr, nullptr), 1);
}

TEST(PrivateProfile, Integers) {
    const TemporaryDirectory directory;
    const std::wstring path = wide(
        directory.write("in.ini", "top=3\n[s]\nq=\"\"12\"\nw=word\nl=\nl=\"\"\nl=-9 mm\nbig=4294967301\n\xC3\xA9=6\n"));
    const auto integer = [&](const wchar_t* section, const wchar_t* key) {
        return GetPrivateProfileIntEx(section, key, 77, path.c_str());
    };
    for (const auto& [key, value] :
         {std::pair(L"q", 12), {L"w", 0}, {L"l", -9}, {L"big", 5}, {L"\u00E9", 6}, {L"Q", 77}}) {
        EXPECT_EQ(integer(L"s", key), value) << value;
    }
    EXPECT_EQ(integer(nullptr, L"top"), 3);
    EXPECT_EQ(GetPrivateProfileIntEx(L"s", L"q", 77, (path + L"x").c_str()), 77);
    EXPECT_THROW(integer(L"\x110000", L"q"), std::range_error);
}

TEST(PrivateProfile, SectionNames) {
    const TemporaryDirectory directory;
    const std::wstring path = wide(directory.write("in.ini", "k=v\n[a]\n[\"bc\"]\n[d]\n"));
    const auto names = [&](unsigned int size, const std::wstring& file) {
        std::wstring buffer(9, L'z');
        const int count = GetPrivateProfileSectionNamesEx(buffer.data(), size, file.c_str());
        return std::to_wstring(count) + L":" + shown(buffer);
    };
    EXPECT_EQ(names(9, path), L"7:a|bc|d|||");
    EXPECT_EQ(names(6, path), L"5:a|bc||zzz");
    EXPECT_EQ(names(0, path), L"7:zzzzzzzzz");
    EXPECT_EQ(names(4, path + L"x"), L"0:||||zzzzz");
}

TEST(PrivateProfile, Writes) {
    const TemporaryDirectory directory;
    const auto write = [&](const char* name, const wchar_t* section, const wchar_t* key, const wchar_t* value) {
        EXPECT_EQ(WritePrivateProfileStringEx(section, key, value, wide(directory.path(name)).c_str()), 1);
        return directory.exists(name) ? directory.read(name) : "none";
    };
    EXPECT_EQ(write("new.ini", L"s", L"k", L"\u00E9"), "[s]\nk=\xC3\xA9\n");
    directory.write("old.ini", "# lost\nk=1 # n\n[s] # note\na=1\n");
    EXPECT_EQ(write("old.ini", nullptr, L"k", L"2"), "k=2 #n\n[s]\n #notea=1\n");
    EXPECT_EQ(write("old.ini", L"s", L"a", L""), "k=2 #n\n[s]\na=\n");
    directory.write("bad.ini", "[s]\nk = 1\njunk");
    EXPECT_EQ(write("bad.ini", L"s", L"k", L"2"), "[s]\nk = 1\njunk");
    EXPECT_EQ(write("none/x.ini", L"s", L"k", L"v"), "none");
}
