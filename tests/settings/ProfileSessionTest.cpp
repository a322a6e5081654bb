// SPDX-License-Identifier: BSD-3-Clause
#include "settings/ProfileSession.h"

#include <filesystem>
#include <memory>
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

class Random {
public:
    explicit Random(unsigned seed) : m_random(seed) {}
    size_t upTo(size_t count) { return std::uniform_int_distribution<size_t>(0, count - 1)(m_random); }
    const std::string& of(const std::vector<std::string>& texts) { return texts[upTo(texts.size())]; }

    /// Mostly plain; else one that does not read back as it is written.
    std::string value() {
        static const std::vector<std::string> plain = {"1", "A4", "x = y", "\"q\"", ""};
        static const std::vector<std::string> nasty = {" b ",    "a # b",           "#",        "#a",   "two\nk=3",
                                                       "[n",     "a\n[s] # n\nk=4", "end\n",    "\n\n", "\r",
                                                       "a\n #b", "x\n[]",           "no\nsign", "\n[t"};
        return upTo(3) == 0 ? of(nasty) : of(plain);
    }
    std::string name() {
        static const std::vector<std::string> plain = {"s", "t", "k", "l"};
        static const std::vector<std::string> nasty = {"",   " s",  "a#b", "#k",     "a=b",
                                                       "[k", "u]v", "\n",  "a\nb=c", "k\t"};
        return upTo(8) == 0 ? of(nasty) : of(plain);
    }

private:
    std::mt19937 m_random;
};

std::string randomText(Random& random) {
    static const std::vector<std::string> lines = {"k=1", "l=2 # n", "# c", "", "  k = 5", "=", "l=\"6\""};
    static const std::vector<std::string> headers = {"[s]", "# c\n[s] # note", "[s]x # note", "[ s ]"};
    std::string text;
    const auto addLines = [&] {
        for (size_t count = random.upTo(4); count > 0; --count) {
            text += random.of(lines) + "\n";
        }
    };
    addLines();
    text += random.of(headers) + "\n";
    addLines();
    text += random.upTo(3) == 0 ? "[t] # note\n" : "[t]\n";
    addLines();
    return text + (random.upTo(12) == 0 ? "junk" : "");
}

} // namespace

TEST(ProfileSession, GivesTheBytesAndAnswersOfSingleCalls) {
    const TemporaryDirectory directory;
    size_t written = 0, refused = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        const std::string aloneName = std::to_string(seed), togetherName = aloneName + "-together";
        const std::string alone = directory.path(aloneName), together = directory.path(togetherName);
        const std::string text = random.upTo(8) != 0 ? randomText(random) : "";
        if (!text.empty()) { // else the first call creates the file
            directory.write(aloneName, text);
            directory.write(togetherName, text);
        }
        auto session = std::make_unique<ProfileSession>(together);
        for (size_t calls = 1 + random.upTo(7); calls > 0; --calls) {
            const std::string section = random.name(), key = random.name(), value = random.value();
            const std::string before = directory.exists(aloneName) ? directory.read(aloneName) : "";
            writeAlone(alone, section, key, value);
            session->writeString(section, key, value);
            ++(directory.read(aloneName) == before ? refused : written);
            if (random.upTo(5) == 0) {
                ProfileSession fresh(alone);
                ASSERT_EQ(answers(*session, section, key), answers(fresh, section, key));
            }
        }
        session.reset();
        ASSERT_EQ(directory.read(togetherName), directory.read(aloneName)) << "from\n" << text;
    }
    EXPECT_GT(written, 300U);
    EXPECT_GT(refused, 60U);
}

TEST(ProfileSession, WritesTheFileOnceAndOnlyWhenSomethingWasSet) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("in.ini", "[s] k\nk=1\n");
    {
        ProfileSession session(path);
        EXPECT_EQ(session.getInt("s", "k", 0), 1);
        session.flush();
        EXPECT_EQ(directory.read("in.ini"), "[s] k\nk=1\n");
        session.writeString("s", "k", "two\nlines=3 # note");
        session.writeString("s", "l", "4");
        EXPECT_EQ(directory.read("in.ini"), "[s] k\nk=1\n");
    }
    EXPECT_EQ(directory.read("in.ini"), "[s]\nk=two\nlines=3 #note\nl=4\n");
}
