// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "settings/PaperFile.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

const std::string label = "[General]\nPaperCount=1\n[Paper 0]\nName=Label\nWidth=500\nLength=300\n";
const std::string ticket = "[General]\nPaperCount=1\n[Paper 0]\nName=Ticket\nWidth=500\nLength=300\n";

/// The name of the only paper in a folder's file.
std::wstring nameIn(const TemporaryDirectory& directory, QStringList& warnings) {
    const std::vector<PaperSize> papers = PaperFile(QString::fromStdString(directory.path())).read(warnings);
    return papers.size() == 1 ? papers[0].Name : L"";
}

/// Makes the cache look as if it had been written so many seconds from now.
void setAge(const TemporaryDirectory& directory, int seconds) {
    std::filesystem::last_write_time(directory.path("papers.PER"),
                                     std::filesystem::file_time_type::clock::now() + std::chrono::seconds(seconds));
}

TEST(PaperCache, IsMadeAndFollowsTheText) {
    const TemporaryDirectory directory;
    QStringList warnings;
    directory.write("papers.ini", label);
    EXPECT_EQ(nameIn(directory, warnings), L"Label");
    ASSERT_EQ(directory.read("papers.PER").size(), 28U + 160U);
    // Only a look at the cache can answer this one: the text is older and would be refused.
    directory.write("papers.ini", "junk\n");
    setAge(directory, 60);
    EXPECT_EQ(nameIn(directory, warnings), L"Label");
    setAge(directory, -60);
    directory.write("papers.ini", ticket);
    EXPECT_EQ(nameIn(directory, warnings), L"Ticket") << "the text was edited after the cache was made";
    EXPECT_EQ(nameIn(directory, warnings), L"Ticket");
    EXPECT_EQ(warnings, QStringList());
}

TEST(PaperCache, IsPassedOverAndKeptWhenDamaged) {
    const TemporaryDirectory directory;
    QStringList warnings;
    directory.write("papers.ini", label);
    nameIn(directory, warnings);
    const std::string whole = directory.read("papers.PER");
    for (const std::string& damaged : {whole.substr(0, 100), whole.substr(0, 4) + "x" + whole.substr(5)}) {
        directory.write("papers.PER", damaged);
        setAge(directory, -60);
        warnings.clear();
        EXPECT_EQ(nameIn(directory, warnings), L"Label");
        EXPECT_TRUE(warnings.value(0).contains("papers.PER: damaged")) << warnings.join('\n').toStdString();
        EXPECT_EQ(directory.read("papers.PER"), damaged);
    }
}

} // namespace
} // namespace kelplot
