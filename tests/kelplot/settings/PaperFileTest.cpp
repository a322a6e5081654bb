// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QFile>

#include "settings/PaperFile.h"
#include "settings/PaperTable.h"
#include "settings/SettingsFile.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

const std::string general = "[General]\nPaperCount=1\n";
const std::string label = "# for the small machine\n[Paper 0]\nName=Label\nPaper=257\nWidth=500\nLength=300\n";

PaperFile fileIn(const TemporaryDirectory& directory) {
    return PaperFile(QString::fromStdString(directory.path()));
}

QStringList namesIn(const TemporaryDirectory& directory, QStringList* warnings = nullptr) {
    QStringList ignored;
    PaperTable table;
    table.add(fileIn(directory).read(warnings ? *warnings : ignored), true);
    QStringList names;
    for (const NamedPaper& paper : table.papers()) {
        names << paper.name;
    }
    return names;
}

/// Makes a file look as if it had been written so many seconds ago.
void makeOlder(const TemporaryDirectory& directory, const std::string& name, int seconds) {
    QFile file(QString::fromStdString(directory.path(name)));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds), QFileDevice::FileModificationTime));
}

PaperSize banner() {
    return recordFor(QStringLiteral("Bänner"), {5000.0, 914.4}, {1.0, 2.0, 3.0, 4.0}).value_or(PaperSize());
}

TEST(PaperFile, KeepsWhatItHeldWhenAPaperIsAdded) {
    const TemporaryDirectory directory;
    const std::string before = "# mine\n[Desk]\nheight=720\n" + general + label + "\n# spare:\n#[Paper 1]\n";
    directory.write("papers.ini", before);
    EXPECT_EQ(fileIn(directory).add(banner()), 258) << "257 is taken";
    QStringList warnings;
    const std::vector<PaperSize> papers = fileIn(directory).read(warnings);
    ASSERT_EQ(papers.size(), 2U);
    EXPECT_EQ(papers[0].Width, 500);
    EXPECT_EQ(std::wstring(papers[1].Name), L"B\u00e4nner");
    EXPECT_EQ(papers[1].Width, 50000);
    EXPECT_EQ(papers[1].Length, 9144);
    EXPECT_EQ(papers[1].UpEdge, 20);
    EXPECT_EQ(papers[1].DownEdge, 40);
    for (const char* const part :
         {"# mine\n", "[Desk]\nheight=720\n", "# for the small machine\n", "\n# spare:\n#[Paper 1]\n"}) {
        EXPECT_NE(directory.read("papers.ini").find(part), std::string::npos) << part;
    }
    EXPECT_EQ(directory.read("papers.ini~"), before);
    EXPECT_EQ(warnings, QStringList());
}

TEST(PaperFile, IsMadeWithItsFolder) {
    const TemporaryDirectory directory;
    const PaperFile file(QString::fromStdString(directory.path("new/folder")));
    EXPECT_FALSE(file.exists());
    EXPECT_EQ(file.add(banner()), 257);
    QStringList warnings;
    EXPECT_EQ(file.read(warnings).size(), 1U);
}

TEST(PaperFile, IsLeftAloneWhereAnAdditionWouldLoseSomething) {
    const struct {
        const char* name;
        const char* more;
        const char* told;
    } rows[] = {{"key below a note", "[Desk] # by the window\nheight=720\n", "the comment after the header [Desk]"},
                {"one of two equal keys", "[Extra] # note\npen=1\npen=2\n", "[Extra]"},
                {"header below a note", "[Empty] # note\n[Desk]\nheight=720\n", "the comment after the header [Empty]"},
                {"paper that is not counted", "[Paper 1]\nName=Spare\nWidth=500\nLength=300\n", "[Paper 1]"}};
    for (const auto& row : rows) {
        const TemporaryDirectory directory;
        const std::string text = general + label + row.more;
        directory.write("papers.ini", text);
        try {
            fileIn(directory).add(banner());
            ADD_FAILURE() << row.name << ": accepted";
        } catch (const SettingsError& error) {
            EXPECT_NE(std::string(error.what()).find(row.told), std::string::npos) << row.name << ": " << error.what();
        }
        EXPECT_EQ(directory.read("papers.ini"), text) << row.name;
        EXPECT_EQ(QDir(QString::fromStdString(directory.path())).entryList(QDir::Files), QStringList{"papers.ini"});
    }
}

TEST(PaperCache, IsMadeAndFollowsTheText) {
    const TemporaryDirectory directory;
    directory.write("papers.ini", general + label);
    EXPECT_EQ(namesIn(directory), QStringList{"Label"});
    ASSERT_EQ(directory.read("papers.PER").size(), 28U + 160U);
    // Only a look at the cache can answer this one: the text is older and would be refused.
    directory.write("papers.ini", "junk\n");
    QFile cache(QString::fromStdString(directory.path("papers.PER")));
    ASSERT_TRUE(cache.open(QIODevice::ReadWrite));
    ASSERT_TRUE(cache.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    EXPECT_EQ(namesIn(directory), QStringList{"Label"});
    cache.close();
    makeOlder(directory, "papers.PER", 60);
    directory.write("papers.ini", general + "[Paper 0]\nName=Ticket\nWidth=500\nLength=300\n");
    EXPECT_EQ(namesIn(directory), QStringList{"Ticket"}) << "the text was edited after the cache was made";
    EXPECT_EQ(namesIn(directory), QStringList{"Ticket"});
}

TEST(PaperCache, IsNotMadeOfAListWithoutPapers) {
    const TemporaryDirectory directory;
    directory.write("papers.ini", "[General]\nPaperCount=0\n");
    QStringList warnings;
    namesIn(directory, &warnings);
    namesIn(directory, &warnings);
    EXPECT_EQ(warnings, QStringList()) << "the first look left a cache that the second took for a damaged one";
}

TEST(PaperCache, IsPassedOverAndKeptWhenDamaged) {
    const TemporaryDirectory directory;
    directory.write("papers.ini", general + label);
    namesIn(directory);
    const std::string whole = directory.read("papers.PER");
    for (const std::string& damaged :
         {whole.substr(0, 100), whole.substr(0, 4) + "x" + whole.substr(5), std::string("VORNPAPER")}) {
        directory.write("papers.PER", damaged);
        makeOlder(directory, "papers.PER", 60);
        QStringList warnings;
        EXPECT_EQ(namesIn(directory, &warnings), QStringList{"Label"});
        ASSERT_EQ(warnings.size(), 1);
        EXPECT_TRUE(warnings[0].contains("papers.PER: damaged")) << warnings[0].toStdString();
        EXPECT_EQ(directory.read("papers.PER"), damaged);
    }
}

TEST(PaperFile, IsRefusedWithTheReasonAndStaysAsItIs) {
    const struct {
        const char* name;
        std::string text;
        const char* told;
    } cases[] = {{"line that is nothing", general + label + "Width 500\n", "Width 500"},
                 {"section twice", general + label + label, "same name"},
                 {"open header", general + "[Paper 0\n", "closing bracket"},
                 {"empty", "", "PaperCount"},
                 {"no count", label, "PaperCount"},
                 {"negative count", "[General]\nPaperCount=-1\n" + label, "PaperCount"},
                 {"count beyond all sections", "[General]\nPaperCount=2000000000\n" + label, "no section [Paper 1]"},
                 {"cut off", general + "[Paper 0]\nPaper=257\n", "[Paper 0] has no name"},
                 {"no width", general + "[Paper 0]\nName=X\nWidth=wide\n", "[Paper 0] has no Width"},
                 {"margins wider than the sheet", general + label + "LeftEdge=250\nRightEdge=250\n", "margins"}};
    for (const auto& row : cases) {
        const TemporaryDirectory directory;
        directory.write("papers.ini", row.text);
        const auto expectRefusal = [&](auto&& act) {
            try {
                act();
                ADD_FAILURE() << row.name << ": accepted";
            } catch (const SettingsError& error) {
                const std::string told = error.what();
                EXPECT_NE(told.find("papers.ini: "), std::string::npos) << row.name << ": " << told;
                EXPECT_NE(told.find(row.told), std::string::npos) << row.name << ": " << told;
            }
        };
        expectRefusal([&] { namesIn(directory); });
        expectRefusal([&] { fileIn(directory).add(banner()); });
        EXPECT_EQ(directory.read("papers.ini"), row.text);
        EXPECT_EQ(QDir(QString::fromStdString(directory.path())).entryList(QDir::Files), QStringList{"papers.ini"});
    }
}

TEST(PaperTable, FindsNamesAsPeopleWriteThem) {
    PaperTable table;
    std::vector<PaperSize> records;
    for (const char* const name : {"A4", "ANSI D", "DIN A4x3", "Größe 1", "Iso"}) {
        records.push_back(recordFor(QString::fromUtf8(name), {100.0, 200.0}, {}).value_or(PaperSize()));
    }
    table.add(records, true);
    table.add({recordFor(QStringLiteral("a-4"), {1.0, 2.0}, {}).value_or(PaperSize())}, false);
    EXPECT_EQ(table.papers().size(), 5U) << "the first paper of a name hides the others";
    const std::pair<const char*, const char*> cases[] = {
        {"a4", "A4"},        {"DIN A4", "A4"},     {"iso_a4", "A4"},      {"ansi-d", "ANSI D"},
        {"AnsiD", "ANSI D"}, {"A4x3", "DIN A4x3"}, {"GRÖSSE 1", nullptr}, {"GRÖßE-1", "Größe 1"},
        {"A44", nullptr},    {"", nullptr},        {"DIN", nullptr}};
    for (const auto& [asked, found] : cases) {
        const NamedPaper* const paper = table.find(QString::fromUtf8(asked));
        EXPECT_EQ(paper ? paper->name : QString(), QString::fromUtf8(found)) << asked;
    }
    EXPECT_EQ(table.nearest(QStringLiteral("asni d")).value(0), "ANSI D");
}

} // namespace
} // namespace kelplot
