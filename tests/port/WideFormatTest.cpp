// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include <cmath>
#include <cstdarg>
#include <cwchar>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "port/CString.h"
#include "port/Utf8.h"

using namespace KelDriver::Internal;

namespace {

std::wstring format(const wchar_t* text, ...) {
    va_list arguments;
    va_start(arguments, text);
    std::wstring result = VnEmu_vswprintfV(text, arguments);
    va_end(arguments);
    return result;
}

void expectRows(const std::vector<std::tuple<const char*, std::wstring, std::wstring>>& rows) {
    for (const auto& [name, result, expected] : rows) {
        EXPECT_EQ(result, expected) << name;
    }
}

TEST(WideFormat, WritesIntegers) {
    constexpr int64_t minusOne = -1;
    expectRows({
        {"zeros before the sign", format(L"%05d", -42), L"00-42"},
        {"zeros before the base", format(L"%#06x", 255), L"000xff"},
        {"zeros after", format(L"%-05d|", 12), L"12000|"},
        {"base", format(L"%#x %#X %X %#o %#x %#o", 255, 255, 255, 8, 0, 0), L"0xff 0XFF FF 010 0 0"},
        {"least digits", format(L"%.3d %.0d", 7, 0), L"007 0"},
        {"least digits count the sign", format(L"%.3d %+.3d", -7, 7), L"0-7 0+7"},
        {"no least digits beside a width", format(L"%5.3d", 7), L"    7"},
        {"zeros go on over texts", format(L"%.3d%5s", 7, L"ab"), L"007000ab"},
        {"zeros end at a width", format(L"%.3d%3d%3s", 7, 1, L"a"), L"007  1  a"},
        {"the zero flag does not reach a text", format(L"%04s", L"a"), L"   a"},
        {"left ends with its conversion", format(L"%-3d|%3d", 1, 2), L"1  |  2"},
        {"blank flag", format(L"% d % 3d", 5, 6), L"5   6"},
        // Widths and precisions that are arguments.
        {"width", format(L"%*d", 3, 7), L"  7"},
        {"a later star", format(L"%*-*d|", 9, 3, 7), L"7  |"},
        {"digits beside a zero star", format(L"%*5d", 0, 7), L"    7"},
        {"digits beside a star are the letter", format(L"%*5d", 3), L"  d"},
        {"negative width", format(L"%0*d", -5, 7), L"7"},
        {"precision", format(L"%.*d %.*f", 2, 7, 1, 0.25), L"07 0.2"},
        {"negative precision", format(L"%.*d %.*f", -2, 7, -1, 0.25), L"7 0.250000"},
        // Length prefixes.
        {"32 bits are signed", format(L"%u %lu %hu", -1, -1, 70000), L"-1 -1 70000"},
        {"but not in other bases", format(L"%x %o", -1, -1), L"ffffffff 37777777777"},
        {"64 bits are not", format(L"%I64d %lld", minusOne, minusOne), L"18446744073709551615 18446744073709551615"},
        {"nor do they show a sign", format(L"%+I64d %+d", int64_t{5}, 5), L"5 +5"},
        {"64-bit bases", format(L"%#I64X %llo", minusOne, minusOne), L"0XFFFFFFFFFFFFFFFF 1777777777777777777777"},
        {"unknown lengths", format(L"%I32d %jd %zd %td %I6"), L"32d d d d 6"},
        {"ignored lengths", format(L"%Fd %Ns %Lf", 1, L"a", 2.0), L"1 a 2.000000"},
        {"64-bit texts print and take nothing", format(L"%lls%I64S%llc%I64C%d", 5), L"5"},
    });
}

TEST(WideFormat, WritesTextsPointersAndLiterals) {
    const wchar_t* const noText = nullptr;
    const char* const noBytes = nullptr;
    int number = -12;
    expectRows({
        {"wide", format(L"%s %ls %wS %LS", L"a", L"b", L"\u00e9", L"d"), L"a b \u00e9 d"},
        {"narrow", format(L"%S %hs %hS", "a", "\xe9", "c"), L"a \u00e9 c"},
        {"null", format(L"%s %S %8hs", noText, noBytes, noBytes), L"(null) (null)   (null)"},
        {"precision", format(L"%.1s %.1S", L"whole", "text"), L"whole text"},
        {"characters", format(L"%c%lC%3c%-3wc|", L'a', L'\u00e9', L'b', L'c'), L"a\u00e9  bc  |"},
        {"a narrow character is a number", format(L"%hc %+4hC", 65, 66), L"65  +66"},
        {"no character silences the rest", format(L"%c%d", -1, 5), std::wstring{static_cast<wchar_t>(-1), L'5'}},
        {"terminator as a character", format(L"%cz", 0), std::wstring{L'\0', L'z'}},
        {"pointer", format(L"%8p|%p", reinterpret_cast<void*>(0xAB), nullptr), L"    0xab|0"},
        {"counter", format(L"abc%n%5n", &number, &number), L"abc-12  -12"},
        // A width without a conversion is kept for what comes next.
        {"literal", format(L"%5q|ab"), L"    |ab"},
        {"to the left", format(L"%-3qab"), L"a  b"},
        {"percent", format(L"%3q%%"), L"  %"},
        {"conversion", format(L"%4q%s", L"ab"), L"  ab"},
        {"a precision takes its place", format(L"%4q%.2d", 1), L"01"},
    });
    EXPECT_EQ(number, -12) << "nothing is stored through the pointer";
}

TEST(WideFormat, WritesFloatingNumbers) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    expectRows({
        {"notation goes on", format(L"%f %g", 1.5, 2.5), L"1.500000 2.500000"},
        {"scientific goes on", format(L"%E %g %G", 1.5, 2.5, 2.5), L"1.500000E+00 2.500000e+00 2.500000E+00"},
        {"general at first", format(L"%g %G %.0g", 1e-10, 1e-10, 25.0), L"1e-10 1E-10 2e+01"},
        {"only the letter makes capitals", format(L"%X%g", 10, 1e-10), L"A1e-10"},
        {"point", format(L"%#g %#.3g %#.2g %#.0f %.0f", 0.0, 1e9, 250.0, 3.0, 3.0), L"0.00000 1.00e+09 2.5e+02 3. 3"},
        {"fill", format(L"%08.2f%+7.1f", -1.5, 2.0), L"000-1.50   +2.0"},
        {"no number", format(L"%G %f %06e %+f", NAN, -infinity, infinity, infinity), L"NAN -inf 000inf +inf"},
        {"no capitals in fixed notation", format(L"%f %G", infinity, infinity), L"inf inf"},
    });
}

TEST(WideFormat, EndsWithTheFormat) {
    for (const std::wstring end : {L"%", L"%-+ 0#", L"%5", L"%5.", L"%.3", L"%h", L"%I", L"%I64", L"%l", L"%ll"}) {
        const std::vector<wchar_t> exact(end.c_str(), end.c_str() + end.size() + 1); // a read beyond it is seen
        EXPECT_EQ(format(exact.data()), L"") << testing::PrintToString(end);
    }
}

template <typename Value>
void expectPlatformText(const std::string& text, Value value) {
    wchar_t expected[1000];
    ASSERT_GT(std::swprintf(expected, std::size(expected), fromUtf8(text).c_str(), value), 0);
    EXPECT_EQ(format(fromUtf8(text).c_str(), value), expected) << text << ' ' << value;
}

TEST(WideFormat, MatchesThePlatformWhereRulesAreCommon) {
    std::mt19937_64 random(4);
    const auto upTo = [&random](int last) {
        return static_cast<int>(random() % (static_cast<unsigned>(last) + 1));
    };
    int compared = 0;
    for (int i = 0; i < 8000; ++i) {
        const char* const letters[] = {"d", "o", "x", "lld", "llo", "llx", "e", "E", "f", "g", "G"};
        const std::string letter = letters[upTo(10)];
        const bool isInteger = letter.find_first_of("dox") != std::string::npos;
        const bool isLong = letter.size() > 1;
        const bool left = upTo(2) == 0, plus = upTo(2) == 0, zeros = upTo(2) == 0, alternate = upTo(2) == 0;
        const int width = upTo(1) * upTo(25);
        const int precision = upTo(1) * upTo(30) - 1;
        const int64_t value = (static_cast<int64_t>(random()) >> upTo(63)) | 1;
        const auto narrow = static_cast<int>(value);

        const bool negative = isInteger && !isLong ? narrow < 0 : value < 0;
        const bool signShown = (!isInteger || letter.back() == 'd') && (negative || plus);
        const bool zerosDiffer = zeros && width > 0 && (left || signShown || (isInteger && alternate));
        const bool digitsDiffer = isInteger && precision >= 0 && (width > 0 || left || signShown || alternate);
        if (zerosDiffer || digitsDiffer || (letter == "lld" && signShown)) {
            continue;
        }
        ++compared;
        const std::string text = std::string("<%") + (left ? "-" : "") + (plus ? "+" : "") + (zeros ? "0" : "") +
                                 (alternate ? "#" : "") + (width > 0 ? std::to_string(width) : "") +
                                 (precision >= 0 ? "." + std::to_string(precision) : "") + letter + ">%%";
        if (!isInteger) {
            expectPlatformText(text, std::ldexp(static_cast<double>(value), upTo(1) * (upTo(300) - 200)));
        } else if (isLong) {
            expectPlatformText(text, value);
        } else {
            expectPlatformText(text, narrow);
        }
    }
    EXPECT_GT(compared, 3000);
}

} // namespace
