// SPDX-License-Identifier: BSD-3-Clause

// Random settings files, loaded, edited and saved by the library and by the model; and the sample files.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "keldriver/IniFile.h"
#include "settings/IniModel.h"
#include "support/TemporaryDirectory.h"

namespace {

const std::vector<std::string> words = {"a", "b", "A", "k 1", "", "\xC3\xA9", "12", "\"q\"", "[x", "c"};
const std::vector<std::string> values = {"", "1", "v w", "x = y", "a;b", "]", "\t7", "#", "//", "two\nlines", "end\n"};
const std::vector<std::string> spaces = {"", "", "", " ", "\t \v", "\r"};

class RandomIni {
public:
    RandomIni(unsigned seed, std::string commentDelimiter) : random(seed), delimiter(std::move(commentDelimiter)) {}

    size_t upTo(size_t count) { return std::uniform_int_distribution<size_t>(0, count - 1)(random); }
    const std::string& of(const std::vector<std::string>& texts) { return texts[upTo(texts.size())]; }

    std::string text() {
        std::string text;
        for (size_t lines = upTo(16); lines > 0; --lines) {
            text += of(spaces) + line() + of(spaces) + (lines == 1 && upTo(2) == 0 ? "" : "\n");
        }
        return text;
    }

private:
    std::string line() {
        const std::string note = upTo(4) == 0 ? of(spaces) + delimiter + of(spaces) + of(values) : "";
        const size_t kind = upTo(40);
        if (kind == 0) {
            return of(values);
        }
        if (kind < 10) {
            return "[" + of(spaces) + of(words) + std::to_string(upTo(2)) + of(spaces) + "]" + of(words) + note;
        }
        return kind < 16 ? note : of(words) + "x" + of(spaces) + "=" + of(spaces) + of(values) + note;
    }

    std::mt19937 random;
    std::string delimiter;
};

/// Makes one random change to both, and compares the answers.
void edit(RandomIni& random, inifile::IniFile& file, IniModel& model) {
    const std::string name = random.of(words) + (random.upTo(2) == 0 ? "" : std::to_string(random.upTo(2)));
    const std::string key = random.upTo(3) == 0 ? random.of(words) : random.of(words) + "x";
    const std::string text = random.of(values);
    IniModel::Section* const section = model.section(name);
    IniModel::Item* const item = IniModel::item(section, key);
    const int code = section == nullptr ? 9 : item == nullptr && !key.empty() ? 8 : 0;
    const auto isIn = [](const auto* one) {
        return [one](const auto& each) {
            return &each == one;
        };
    };
    switch (random.upTo(5)) {
    case 0:
        EXPECT_EQ(file.setValue(name, key, text, random.of(words)), 0);
        EXPECT_EQ(file.setValue(name, key, text, text), 0);
        model.set(name, key, text, text);
        break;
    case 1:
        file.DeleteSection(name);
        model.sections.remove_if(isIn(section));
        break;
    case 2:
        file.DeleteKey(name, key);
        if (section != nullptr) {
            section->items.remove_if(isIn(item));
        }
        break;
    case 3:
        EXPECT_EQ(file.SetComment(name, key, text), code);
        if (code == 0) {
            (key.empty() ? section->comment : item->comment) = text;
        }
        break;
    default:
        EXPECT_EQ(file.SetRightComment(name, key, text), code);
        if (code == 0) {
            (key.empty() ? section->note : item->note) = text;
        }
    }
}

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

TEST(IniModel, AgreesOnRandomFilesLoadedEditedAndSaved) {
    const TemporaryDirectory directory;
    std::map<int, int> codes;
    for (unsigned seed = 0; seed < 1000; ++seed) {
        SCOPED_TRACE(seed);
        const std::string delimiter = seed % 8 == 0 ? "//" : "#";
        RandomIni random(seed, delimiter);
        const std::string name = std::to_string(seed); // rewriting a file takes a disk far longer than a new one
        const std::string text = random.text();
        inifile::IniFile file;
        file.SetCommentDelimiter(delimiter);
        IniModel model(delimiter);
        const int code = model.load(text);
        ++codes[code];
        ASSERT_EQ(file.Load(directory.write(name, text)), code) << text;
        if (seed % 2 == 0) { // lends every section, after which names are looked up in another way
            ASSERT_EQ(dump(file), dump(model));
        }
        for (size_t edits = random.upTo(12); edits > 0; --edits) {
            edit(random, file, model);
        }
        ASSERT_EQ(dump(file), dump(model));
        ASSERT_EQ(file.SaveAs(directory.path(name + ".saved")), 0);
        ASSERT_EQ(directory.read(name + ".saved"), model.text());
        ASSERT_EQ(file.Load(directory.path(name + ".saved")), model.load(model.text()));
        ASSERT_EQ(dump(file), dump(model));
    }
    for (const int code : {0, 4, 5}) {
        EXPECT_GT(codes[code], 20) << "too few files with code " << code;
    }
}

TEST(IniModel, AgreesOnTheSampleFiles) {
    const std::filesystem::path samples = std::filesystem::path(KELDRIVER_SHARED_DATA) / "ini";
    if (!std::filesystem::exists(samples)) {
        GTEST_SKIP() << "no sample files at " << samples;
    }
    // Judged by eye; every other file is judged by the model alone.
    const std::map<std::string, int> judged = {{"ec_parser_basic.ini", 5},   {"ec_parser_crlf.ini", 5},
                                               {"ec_parser_empty.ini", 0},   {"inih_bad_comment.ini", 5},
                                               {"inih_bad_section.ini", 2},  {"inih_duplicate_sections.ini", 4},
                                               {"inih_multi_line.ini", 5},   {"inih_user_error.ini", 0},
                                               {"simpleini_example.ini", 0}, {"simpleini_tests.ini", 5}};
    const TemporaryDirectory directory;
    size_t judgedFiles = 0;
    for (const auto& entry : std::filesystem::directory_iterator(samples)) {
        for (const std::string delimiter : {"#", ";"}) {
            SCOPED_TRACE(entry.path().filename().string() + " with " + delimiter);
            const std::string text = bytesOf(entry.path());
            IniModel model(delimiter);
            const int code = model.load(text);
            const auto known = judged.find(entry.path().filename().string());
            if (known != judged.end() && delimiter == "#") {
                EXPECT_EQ(code, known->second);
                ++judgedFiles;
            }
            inifile::IniFile file;
            file.SetCommentDelimiter(delimiter);
            EXPECT_EQ(file.Load(entry.path().string()), code);
            const std::string loaded = dump(model);
            EXPECT_EQ(dump(file), loaded);
            const std::string savedName = entry.path().filename().string() + delimiter;
            EXPECT_EQ(file.SaveAs(directory.path(savedName)), 0);
            const std::string saved = model.text();
            EXPECT_EQ(directory.read(savedName), saved);
            EXPECT_EQ(file.Load(directory.path(savedName)), model.load(saved));
            EXPECT_EQ(dump(file), dump(model));
            const auto hasNote = [](const IniModel::Section& section) {
                return !section.note.empty();
            };
            IniModel original(delimiter);
            original.load(text);
            if (code == 0 && std::none_of(original.sections.begin(), original.sections.end(), hasNote)) {
                EXPECT_EQ(dump(file), loaded);
            }
        }
    }
    EXPECT_EQ(judgedFiles, judged.size());
}
