// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/IniFile.h"

#include <algorithm>
#include <clocale>
#include <fstream>
#include <limits>
#include <list>
#include <random>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "settings/TextFile.h"
#include "support/TemporaryDirectory.h"

using inifile::IniFile;

namespace {

const struct {
    const char* name;
    std::string text;
    int code;
    std::string message;
    std::string saved; // what was read before the failure, if there was one
} texts[] = {
    {"Empty", "", 0, "", ""},
    {"BlanksAndNote", "  k \t=  v w  #  a # note \n", 0, "", "k=v w #a # note\n"},
    {"CrLf", "k=v\r\n[s]\r\nx=1\r\n", 0, "", "k=v\n[s]\nx=1\n"},
    {"CommentsAreKeptTrimmed", "\n  # one\n[s]\n\n\t#two \nk=v\n# lost\n", 0, "", "\n# one\n[s]\n\n#two\nk=v\n"},
    {"EmptyKeyAndValue", "=v\nk=\n=\n", 0, "", "=v\nk=\n=\n"},
    {"NoLineBreakAtTheEnd", "[s]\nk=v", 0, "", "[s]\nk=v\n"},
    {"DuplicateKeys", "k=1\nk=2\n", 0, "", "k=1\nk=2\n"},
    {"NamesDifferByCase", "[s]\n[S]\n", 0, "", "[s]\n[S]\n"},
    {"BehindTheBracket", "[ s ] rest=1\n", 0, "", "[s]\n"},
    {"FirstBracketEndsTheName", "[[a]]\n", 0, "", "[[a]\n"},
    {"HeaderNote", "[s] # n\nk=v\n[t] # m\n[u]\n", 0, "", "[s]\n #nk=v\n[t]\n #m[u]\n"},
    {"HeaderNoteBeforeComment", "[s] # n\n# c\nk=v\n", 0, "", "[s]\n #n# c\nk=v\n"},
    {"OpenHeader", "a=1\n[s\nb=2\n", 2, "no matched ] found", "a=1\n"},
    {"BracketInTheNote", "[s # ]\n", 2, "no matched ] found", ""},
    {"EmptyHeader", "[]\n", 3, "section name is empty", ""},
    {"BlankHeader", "[  ]\n", 4, "section already exist", ""},
    {"SectionTwice", "[s]\nk=1\n[ s ]\nl=2\n", 4, "section salready exist", "[s]\nk=1\n"},
    {"NoEqualsSign", "[s]\n word # n=1\n", 5, "parse line failed:word", "[s]\n"},
};

TEST(IniFile, LoadsAndSavesTexts) {
    const TemporaryDirectory directory;
    for (const auto& row : texts) {
        SCOPED_TRACE(row.name);
        IniFile file;
        EXPECT_EQ(file.Load(directory.write("in.ini", row.text)), row.code);
        EXPECT_EQ(file.GetErrMsg(), row.message);
        EXPECT_EQ(file.SaveAs(directory.path("out.ini")), 0);
        EXPECT_EQ(directory.read("out.ini"), row.saved);
    }
}

// Edits under random names, held against plain lists; asking for a section has names looked up in another way.
TEST(IniFile, RandomEditsLeaveWhatPlainListsHold) {
    using Items = std::list<std::pair<std::string, std::string>>;
    const TemporaryDirectory directory;
    std::mt19937 random(1);
    const auto name = [&random] {
        return std::string(random() % 4, 'a') + (random() % 2 == 0 ? "A" : "");
    };
    const auto find = [](auto& list, const std::string& wanted) {
        return std::find_if(list.begin(), list.end(), [&](const auto& each) { return each.first == wanted; });
    };
    for (int round = 0; round < 300; ++round) {
        IniFile file;
        std::list<std::pair<std::string, Items>> sections;
        for (int edit = 0; edit < 40; ++edit) {
            const std::string in = name(), key = name(), value = std::to_string(edit);
            const auto section = find(sections, in);
            const size_t kind = random() % 6;
            if (kind == 0) {
                file.DeleteSection(in);
                sections.remove_if([&](const auto& each) { return each.first == in; });
            } else if (kind == 1) {
                file.DeleteKey(in, key);
                if (section != sections.end()) {
                    section->second.remove_if([&](const auto& each) { return each.first == key; });
                }
            } else if (kind == 2 && round % 2 == 0) {
                ASSERT_EQ(file.getSection(in) != nullptr, section != sections.end());
            } else {
                file.SetStringValue(in, key, value);
                const auto place = in.empty() ? sections.begin() : sections.end();
                Items& items = section == sections.end() ? sections.insert(place, {in, {}})->second : section->second;
                const auto item = find(items, key);
                (item == items.end() ? items.insert(items.end(), {key, ""}) : item)->second = value;
            }
        }
        std::string expected;
        for (const auto& [section, items] : sections) {
            expected += section.empty() ? "" : "[" + section + "]\n";
            for (const auto& [key, value] : items) {
                expected.append(key).append("=").append(value).append("\n");
            }
        }
        const std::string saved = std::to_string(round);
        EXPECT_EQ(file.SaveAs(directory.path(saved)), 0);
        ASSERT_EQ(directory.read(saved), expected) << round;
        EXPECT_EQ(file.Load(directory.path(saved)), 0);
        ASSERT_TRUE(sections.empty() || file.HasSection(sections.back().first));
    }
}

TEST(IniFile, UnreadableFileLeavesNoSectionAndSavingToNowhereIsSilent) {
    const TemporaryDirectory directory;
    IniFile file;
    // A folder; a file whose reading meets a fault; no file.
    for (const std::string& path : {directory.path(), std::string("/proc/self/mem"), directory.path("none/x.ini")}) {
        file.SetStringValue("s", "k", "v");
        EXPECT_EQ(file.Load(path), 6);
        EXPECT_EQ(file.GetErrMsg(), "open" + path + " file failed");
        EXPECT_EQ(file.GetSectionNum(), 0);
        EXPECT_EQ(file.Save(), 0);
    }
    EXPECT_FALSE(directory.exists("none"));
    EXPECT_EQ(file.Load(directory.path("new.ini")), 6);
    file.SetStringValue("s", "k", "v");
    file.SetStringValue("", "first", "1");
    EXPECT_EQ(file.Save(), 0);
    EXPECT_EQ(directory.read("new.ini"), "first=1\n[s]\nk=v\n");
}

TEST(IniFile, ReadsTextsWhoseLengthIsNotKnown) {
    const TemporaryDirectory directory;
    const std::string pipe = directory.path("pipe"), text(20000, 'x');
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::thread writer([&] { std::ofstream(pipe) << text; });
    EXPECT_EQ(KelDriver::Internal::readTextFile(pipe), text);
    writer.join();
}

TEST(IniFile, LookupsAnswerCodesAndKeepMessages) {
    const TemporaryDirectory directory;
    IniFile file;
    file.Load(directory.write("in.ini", "[s] # sn\n# above\nk=1 # kn\nk=2\n"));
    std::string value = "old", comment;
    std::vector<std::string> values = {"kept"}, comments;
    const auto answered = [&](int code, const std::string& message) {
        EXPECT_EQ(std::to_string(code) + " " + file.GetErrMsg(), message);
    };
    answered(file.getValue("s", "k", value, comment), "0 ");
    EXPECT_EQ(value + comment, "1# above\n");
    answered(file.GetStringValue("S", "k", value), "9 not find the section S");
    answered(file.SetRightComment("R", "k", "x"), "9 Not find the section R");
    answered(file.SetComment("T", "", "x"), "9 Not find the section T");
    answered(file.GetStringValue("s", "K", value), "8 not find the key K");
    EXPECT_FALSE(file.HasSection("U") || file.HasKey("U", "k") || file.HasKey("s", "l"));
    EXPECT_TRUE(file.HasSection("") && file.HasKey("s", "k"));
    answered(file.GetValues("s", "k", values, comments), "0 not find the key K");
    EXPECT_EQ(values, (std::vector<std::string>{"kept", "1", "2"}));
    EXPECT_EQ(comments, (std::vector<std::string>{"# above\n", ""}));
    EXPECT_EQ(value, "1") << "left alone";
    answered(file.GetStringValueOrDefault("s", "x", value, "d"), "8 not find the key x");
    EXPECT_EQ(value, "d");
    answered(file.GetValues("s", "y", values), "8 not find the key y");
    answered(file.GetValues("x", "k", values), "9 not find the section x");
    EXPECT_EQ(file.GetSections(values), 5);
    EXPECT_EQ(values.back(), "s");
    EXPECT_EQ(file.GetRightComment("s", "", value) + file.GetRightComment("s", "k", comment), 0);
    EXPECT_EQ(value + comment, "snkn");
    EXPECT_EQ(file.getSection("x"), nullptr);
    file.getSection("s")->name = "t";
    EXPECT_TRUE(file.HasKey("t", "k") && !file.HasSection("s"));
}

TEST(IniFile, NumbersAndTruthValues) {
    IniFile file;
    // text, as integer, as number, as truth value when it was false before and when it was true; none: 7, 2.5, true
    const std::tuple<const char*, int, double, bool, bool> rows[] = {{"12x", 12, 12.0, false, true},
                                                                     {"-7", -7, -7.0, false, true},
                                                                     {"word", 0, 0.0, false, true},
                                                                     {"4294967298", 2, 4294967298.0, false, true},
                                                                     {"TRUE", 0, 0.0, true, true},
                                                                     {"1", 1, 1.0, true, true},
                                                                     {"99999999999999999999", -1, 1e20, false, true},
                                                                     {"False", 0, 0.0, false, false},
                                                                     {"0", 0, 0.0, false, false},
                                                                     {"1.5e1", 1, 15.0, false, true},
                                                                     {nullptr, 7, 2.5, false, true}};
    for (const auto& [text, expectedInteger, expectedNumber, fromFalse, fromTrue] : rows) {
        SCOPED_TRACE(text ? text : "none");
        const char* const key = text ? "k" : "none";
        file.SetStringValue("", "k", text ? text : "");
        int integer = 55;
        double number = 55.0;
        bool first = false, second = true;
        EXPECT_EQ(file.GetIntValueOrDefault("", key, integer, 7) + file.GetDoubleValueOrDefault("", key, number, 2.5) +
                      file.GetBoolValue("", key, first) + file.GetBoolValueOrDefault("", key, second, true),
                  text ? 0 : 32);
        EXPECT_EQ(std::tie(integer, number, first, second),
                  std::tie(expectedInteger, expectedNumber, fromFalse, fromTrue));
    }
    int integer = 55;
    double number = 55.0;
    bool flag = true;
    EXPECT_EQ(file.GetIntValue("", "none", integer) + file.GetDoubleValue("", "none", number) +
                  file.GetBoolValue("none", "k", flag),
              25);
    EXPECT_TRUE(integer == 0 && number == 0.0 && flag);
}

TEST(IniFile, SettersWriteTheirFormsWhateverTheLocale) {
    const TemporaryDirectory directory;
    const std::string compile = "localedef -i de_DE -f UTF-8 " + directory.path("de_DE.UTF-8");
    ASSERT_EQ(std::system(compile.c_str()), 0) << "from the package locales";
    setenv("LOCPATH", directory.path().c_str(), 1);
    const std::string locale = std::setlocale(LC_NUMERIC, nullptr);
    ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr);
    unsetenv("LOCPATH");
    ASSERT_EQ(std::to_string(1.5), "1,500000");
    IniFile file;
    file.Load(directory.write("in.ini", "[s]\n# above\ni=1 # note\n"));
    file.SetIntValue("s", "i", -2147483647);
    using Limits = std::numeric_limits<double>;
    for (const double each : {-12345678.25, -0.0, Limits::infinity(), Limits::lowest()}) {
        std::string text, expected = std::to_string(each);
        double number = 0.0;
        std::replace(expected.begin(), expected.end(), ',', '.');
        file.SetDoubleValue("s", "d", each);
        EXPECT_EQ(file.GetStringValue("s", "d", text) + file.GetDoubleValue("s", "d", number), 0);
        EXPECT_EQ(text, expected);
        EXPECT_EQ(number, each);
    }
    file.SetDoubleValue("s", "d", 1.0 / 3.0);
    std::setlocale(LC_NUMERIC, locale.c_str());
    file.SetBoolValue("s", "b", true);
    file.setValue("s", "c", "v", " why");
    file.SetComment("s", "", "# head\n");
    file.SetRightComment("s", "b", "n");
    file.Save();
    EXPECT_EQ(directory.read("in.ini"), "# head\n[s]\ni=-2147483647 #note\nd=0.333333\nb=true #n\n# why\nc=v\n");
}

TEST(IniFile, PrintsItsContent) {
    const TemporaryDirectory directory;
    IniFile file;
    const std::string path = directory.write("in.ini", "[s] # n\n#c\nk=v # m\n");
    file.Load(path);
    testing::internal::CaptureStdout();
    file.print();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "############ print start ############filePath:[" + path +
                  "]\ncommentDelimiter:[#]\ncomment :[\n]\nsection :\n[]\ncomment :[\n]\nsection :\n[s]\n"
                  "rightComment:\nn    comment :[\n#c\n]\n    parm    :k=v\n    rcomment:[\nm]\n"
                  "############ print end ############");
}

TEST(IniFile, TextHelpers) {
    std::string text = " \t\n\v\f\r a b\xA0 \r\n";
    IniFile::trim(text);
    EXPECT_EQ(text, "a b\xA0");
    text = "xxaxx";
    IniFile::trimleft(text, 'x');
    EXPECT_EQ(text, "axx");
    IniFile::trimright(text, 'x');
    EXPECT_EQ(text, "a");
    IniFile::trimright(text, 'a');
    IniFile::trimleft(text, 'a');
    EXPECT_EQ(text, "");
    std::string left, right = "old";
    EXPECT_FALSE(IniFile::split(" a ", "//", left, right));
    EXPECT_EQ(left + "|" + right, "a|");
    EXPECT_TRUE(IniFile::split("a // b", "//", left, right));
    EXPECT_EQ(left + "|" + right, "a|/ b");
    EXPECT_TRUE(IniFile::split("", "", left, right));
    EXPECT_TRUE(IniFile::parse("k = v = w", left, right));
    EXPECT_EQ(left + "|" + right, "k|v = w");
    IniFile file;
    file.SetCommentDelimiter("rem");
    EXPECT_TRUE(file.IsCommentLine("remark") && !file.IsCommentLine("re") && !file.IsCommentLine(" rem"));
    EXPECT_TRUE(IniFile::StringCmpIgnoreCase("aZ1", "Az1") && !IniFile::StringCmpIgnoreCase("a", "ab"));
}

} // namespace
