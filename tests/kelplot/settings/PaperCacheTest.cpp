// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QDateTime>
#include <QFile>

#include "settings/PaperFile.h"
#include "settings/PaperTable.h"
#include "settings/SettingsFile.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

const std::string general = "[General]\nPaperCount=1\n";
const std::string label = "[Paper 0]\nName=Label\nWidth=500\nLength=300\n";

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

} // namespace
} // namespace kelplot
