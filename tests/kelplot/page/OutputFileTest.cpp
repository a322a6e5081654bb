#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include "device/OutputFile.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

QStringList entriesOf(const TemporaryDirectory& directory) {
    return QDir(QString::fromStdString(directory.path())).entryList(QDir::Files | QDir::Hidden);
}

TEST(OutputFile, ReplacesTheOldFileOnlyOnCommit) {
    const TemporaryDirectory directory;
    const QString path = QString::fromStdString(directory.write("plot.pdf", "old"));
    OutputFile file(path);
    file.device().write("new");
    EXPECT_EQ(directory.read("plot.pdf"), "old");
    file.commit();
    EXPECT_EQ(directory.read("plot.pdf"), "new");
    EXPECT_EQ(entriesOf(directory), QStringList{"plot.pdf"});
}

TEST(OutputFile, LeavesNothingBehindWithoutCommit) {
    const TemporaryDirectory directory;
    {
        OutputFile file(QString::fromStdString(directory.path("plot.pdf")));
        file.device().write("half a plot");
    }
    EXPECT_EQ(entriesOf(directory), QStringList());
}

TEST(OutputFile, NamesTheFileThatCannotBeMade) {
    const TemporaryDirectory directory;
    for (const char* const name : {"missing/plot.pdf", ""}) {
        const std::string path = directory.path(name);
        try {
            OutputFile file(QString::fromStdString(path));
            FAIL() << path;
        } catch (const OutputError& error) {
            EXPECT_EQ(std::string(error.what()).rfind(path + ": ", 0), 0U) << error.what();
        }
    }
}

TEST(OutputFile, TellsOfAFullDevice) {
    if (!QFileInfo::exists("/dev/full")) {
        GTEST_SKIP() << "there is no device that is always full";
    }
    OutputFile file("/dev/full");
    file.device().write("plot");
    EXPECT_THROW(file.commit(), OutputError);
}

} // namespace
} // namespace kelplot
