// SPDX-License-Identifier: BSD-3-Clause
#include "settings/ProfileSession.h"

#include <filesystem>
#include <optional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "support/TemporaryDirectory.h"

using namespace KelDriver::Internal;

namespace {

/// Sets a value as a call alone does: read the file, set, write it back. Not by the profile call, which is a session.
void writeAlone(const std::string& path, const std::string& section, const std::string& key, const std::string& value) {
    if (!std::filesystem::exists(path)) {
        std::fclose(std::fopen(path.c_str(), "w"));
    }
    inifile::IniFile model;
    if (model.Load(path) == 0) {
        model.SetStringValue(section, key, value);
        std::filesystem::remove(path); // rewriting a file takes a disk far longer than a new one
        model.Save();
    }
}

/// All that can be asked about a key, each with its result.
std::wstring answers(ProfileSession& session, const std::string& section, const std::string& key) {
    std::wstring out(80, L'\0');
    const int results[] = {session.getString(section, key, L"dflt", out.data(), 40), session.getInt(section, key, 77),
                           session.getSectionNames(&out[40], 40)};
    for (const int result : results) {
        out += std::to_wstring(result) + L' ';
    }
    return out;
}

using Texts = std::vector<std::string>;

// Some of them do not read back as they are written.
const Texts values = {
    "1",  "A4",   "x = y", "\"q\"",           "",       " b ",   "a # b",    "#",    "#a",        "[n", "two\nk=3",
    "\r", "\n\n", "end\n", "a\n[s] # n\nk=4", "a\n #b", "x\n[]", "no\nsign", "\n[t", "\"u\" # v", "2",  "3",
    "4"};
const Texts names = {"s", "t", "k", "l", "s", "k", "", " s", "a#b", "#k", "a=b", "[k", "u]v", "\n", "a\nb=c", "k\t"};
const Texts lines = {"k=1\n", "l=2 # n\n", "# c\n", "\n", "  k = 5\n", "=\n", "l=\"6\"\n", "", ""};
const Texts headers = {"[s]\n", "# c\n[s] # note\n", "[s]x # note\n", "[ s ]\n"};

class Random {
public:
    explicit Random(unsigned seed) : m_random(seed) {}
    size_t upTo(size_t count) { return m_random() % count; }

    /// One of the first `plain` texts; seldom, one in `rarity` times, any.
    const std::string& of(const Texts& texts, size_t plain, size_t rarity) {
        return texts[upTo(upTo(rarity) == 0 ? texts.size() : plain)];
    }
    std::string text() {
        std::string text;
        for (const std::string& header :
             {std::string(), headers[upTo(4)], std::string(upTo(3) ? "[t]\n" : "[t] # n\n")}) {
            text += header + lines[upTo(9)] + lines[upTo(9)] + lines[upTo(9)];
        }
        return text + (upTo(12) == 0 ? "junk" : "");
    }

private:
    std::mt19937 m_random;
};

} // namespace

TEST(ProfileSession, GivesTheBytesAndAnswersOfSingleCalls) {
    const TemporaryDirectory directory;
    size_t written = 0, refused = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        Random random(seed);
        const std::string aloneName = std::to_string(seed), togetherName = aloneName + "-together";
        const std::string alone = directory.path(aloneName), text = random.upTo(8) != 0 ? random.text() : "";
        if (!text.empty()) { // else the first call creates the file
            directory.write(aloneName, text);
            directory.write(togetherName, text);
        }
        std::optional<ProfileSession> session(directory.path(togetherName));
        for (size_t calls = 1 + random.upTo(7); calls > 0; --calls) {
            const std::string section = random.of(names, 4, 8), key = random.of(names, 4, 8);
            const std::string value = random.of(values, 5, 3);
            const std::string before = directory.exists(aloneName) ? directory.read(aloneName) : "";
            writeAlone(alone, section, key, value);
            session->writeString(section, key, value);
            ++(directory.read(aloneName) == before ? refused : written);
            if (random.upTo(5) == 0) {
                ProfileSession fresh(alone);
                ASSERT_EQ(answers(*session, section, key), answers(fresh, section, key)) << seed;
            }
        }
        session.reset();
        ASSERT_EQ(directory.read(togetherName), directory.read(aloneName)) << seed << " from\n" << text;
    }
    EXPECT_GT(written, 300U);
    EXPECT_GT(refused, 60U);
}

TEST(ProfileSession, WritesTheFileOnceAndOnlyWhenSomethingWasSet) {
    const TemporaryDirectory directory;
    {
        ProfileSession session(directory.write("in.ini", "[s] k\nk=1\n"));
        EXPECT_EQ(session.getInt("s", "k", 0), 1);
        session.flush();
        EXPECT_EQ(directory.read("in.ini"), "[s] k\nk=1\n");
        session.writeString("s", "k", "two\nlines=3 # note");
        session.writeString("s", "l", "4");
        EXPECT_EQ(directory.read("in.ini"), "[s] k\nk=1\n");
    }
    EXPECT_EQ(directory.read("in.ini"), "[s]\nk=two\nlines=3 #note\nl=4\n");
}
