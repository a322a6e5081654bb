// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include <cmath>
#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <QRegularExpression>

#include "port/CString.h"
#include "port/Utf8.h"

using namespace KelDriver::Internal;

namespace {

std::string format(const char* text, ...) {
    va_list arguments;
    va_start(arguments, text);
    const std::wstring result = VnEmu_vswprintfV(fromUtf8(text).c_str(), arguments);
    va_end(arguments);
    return toUtf8(result);
}

/// One row of the table of formats that other runtimes' own tests hold, with what those expect.
struct Sample {
    std::string family, format, types, args, expected;
};

std::vector<Sample> readSamples(std::istream& in) {
    std::vector<Sample> samples;
    for (std::string line; std::getline(in, line);) {
        std::istringstream fields(line);
        Sample sample;
        for (std::string* field : {&sample.family, &sample.format, &sample.types, &sample.args, &sample.expected}) {
            std::getline(fields, *field, '\t');
        }
        if (line.front() != '#') {
            samples.push_back(sample);
        }
    }
    return samples;
}

long long integerOf(const std::string& text) {
    char* rest = nullptr;
    const long long value = text[0] == '\'' ? text[1] : std::strtoll(text.c_str(), &rest, 0);
    if (rest == nullptr || *rest != '*') {
        return value;
    }
    return static_cast<long long>(static_cast<uint64_t>(value) * static_cast<uint64_t>(integerOf(rest + 1)));
}

double doubleOf(const std::string& text) {
    const std::pair<const char*, double> names[] = {{"IND", -NAN}, {"M_PI", M_PI}, {"sqrt(2)", std::sqrt(2.0)}};
    for (const auto& [name, value] : names) {
        if (text == name) {
            return value;
        }
    }
    return std::strtod(text.c_str(), nullptr);
}

/// Formats with the arguments in the types that this format takes them in; arguments that it takes none of are left
/// out. Texts are narrow for %S only.
std::string formatSample(const Sample& sample) {
    std::vector<std::string> args(7);
    std::istringstream list(sample.args);
    for (size_t i = 0; i < args.size() && std::getline(list, args[i], '|'); ++i) {
    }
    const char* const text = sample.format.c_str();
    const std::wstring wide[] = {fromUtf8(args[0]), fromUtf8(args[1])};
    const auto number = [&args](size_t i) {
        return static_cast<int>(integerOf(args[i]));
    };
    if (sample.types.find("str") != std::string::npos) {
        const bool narrow = sample.format.find('S') != std::string::npos;
        const void* first = narrow ? static_cast<const void*>(args[0].c_str()) : wide[0].c_str();
        return sample.types == "int,str" ? format(text, number(0), wide[1].c_str())
                                         : format(text, args[0] == "NULL" ? nullptr : first, wide[1].c_str());
    }
    if (sample.types.find("double") == 0) {
        return format(text, doubleOf(args[0]), doubleOf(args[1]), doubleOf(args[2]), doubleOf(args[3]),
                      doubleOf(args[4]), doubleOf(args[5]), doubleOf(args[6]));
    }
    if (sample.types == "int64" || sample.types == "ptr") {
        return format(text, integerOf(args[0]));
    }
    const bool firstIsTaken = sample.types == "int,int" || sample.types == "int";
    return firstIsTaken ? format(text, number(0), number(1)) : format(text, number(1));
}

/// A rule by which texts differ here from those of the other runtimes, and the rows it is the reason for.
struct Difference {
    const char* rule;
    const char* format; ///< a pattern, like the next two
    const char* args;
    const char* expected;
};

const Difference differences[] = {
    {"the blank flag is ignored", "%[-+0#]* [^*]*", ".*", " .*"},
    {"an exponent has two digits at least", ".*", ".*", ".*[eE][-+]0\\d\\d *"},
    {"infinities and NaNs have the stream's names", ".*", "-?(INF|NAN|IND).*", ".*"},
    {"every digit is exact", "%\\.30lf|%\\.0f", "-?0\\.5|sqrt.*", ".*"},
    {"zeros stand before sign and base", "%[+#]*0.*[dxop]", ".*", " *([-+]|0[xX]).*"},
    {"zeros stand behind, too", "%(0-|-0).*[dx]", ".*", ".*"},
    {"zeros fill numbers only", "%0\\d+c", ".*", ".*"},
    {"64 bits are never signed", "%.*I64d", ".*", ".*[-+].*"},
    {"a width makes the precision void", R"(%[-+#0 ]*\d+\.\d+(I64)?[doxXu])", ".*", ".*"},
    {"a zero keeps its digit", "%.*\\.0(I64)?[dox]", "0", ".*"},
    {"a text has no precision", "%\\.[\\d*]+s", ".*", ".*"},
    {"a negative width pads nothing", "%\\*.*", "-.*", ".*"},
    {"digits count beside a zero star only", "%0?\\*\\d+d", "[1-9].*", ".*"},
    {"h leaves 32 bits", "%hx", ".*", ".*"},
    {"F is a length", ".*%F([^a-z].*)?", ".*", ".+"},
    {"there are no other lengths", ".*%[IjztT](?!64).*", ".*", ".*"},
    {"there is one length", "%[-+# 0]*\\d*w[^s].*", ".*", ".+"},
    {"a pointer has the stream's form", "%.*p", ".*", ".*"},
};

bool matches(const std::string& text, const char* pattern) {
    const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
    return whole.match(QString::fromStdString(text)).hasMatch();
}

TEST(FormatSamples, AgreeOrDifferByRule) {
    std::ifstream in(KELDRIVER_SHARED_DATA "/printf/printf_table.tsv");
    if (!in) {
        GTEST_SKIP() << "no sample formats in " KELDRIVER_SHARED_DATA;
    }
    std::set<std::string> rulesSeen;
    for (const Sample& sample : readSamples(in)) {
        const std::string result = formatSample(sample);
        std::string rules;
        for (const Difference& each : differences) {
            if (matches(sample.format, each.format) && matches(sample.args, each.args) &&
                matches(sample.expected, each.expected)) {
                rules += each.rule;
                rulesSeen.insert(each.rule);
            }
        }
        EXPECT_EQ(result == sample.expected, rules.empty())
            << sample.family << ' ' << sample.format << ' ' << sample.args << "\n  here:  [" << result
            << "]\n  there: [" << sample.expected << "]\n  rules: " << rules;
    }
    EXPECT_EQ(rulesSeen.size(), std::size(differences)) << "a rule without a row";
}

template <typename Value>
void expectPlatformText(const std::string& text, Value value) {
    wchar_t expected[1000];
    ASSERT_GT(std::swprintf(expected, std::size(expected), fromUtf8(text).c_str(), value), 0);
    EXPECT_EQ(format(text.c_str(), value), toUtf8(expected)) << text << ' ' << value;
}

TEST(FormatSamples, MatchThePlatformWhereRulesAreCommon) {
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
