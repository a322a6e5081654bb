// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QProcess>

#include "kelplot/cli/KelplotRun.h"

namespace {

/// The words that a viewer finds in a plot of a drawing with many scripts.
QString wordsIn(const TemporaryDirectory& directory, const char* mode) {
    const QString pdf = QString::fromStdString(directory.path("plot.pdf"));
    EXPECT_EQ(plotHere(directory, {"--text", mode, "-o", pdf, EXAMPLE_DRAWINGS "/showcase.dxf"}), "");
    QProcess process;
    process.start("pdftotext", {pdf, "-"});
    EXPECT_TRUE(process.waitForFinished(60000) && process.exitCode() == 0);
    return QString::fromUtf8(process.readAllStandardOutput());
}

TEST(TextMode, FontsCanBeSearched) {
    const TemporaryDirectory directory;
    const QString found = wordsIn(directory, "fonts");
    for (const char* word : {"Dvořák", "Крышка", "Κάλυμμα", "轴承盖", "6 × Ø9"}) {
        EXPECT_TRUE(found.contains(QString::fromUtf8(word))) << word;
    }
    EXPECT_EQ(wordsIn(directory, "outlines").trimmed(), "");
    EXPECT_EQ(plotHere(directory, {"--text", "fonts", "-o", "plot.svg", EXAMPLE_DRAWINGS "/showcase.dxf"}), "");
    EXPECT_NE(directory.read("plot.svg").find("轴承盖"), std::string::npos);
    EXPECT_NE(plotHere(directory, {"--text", "letters", EXAMPLE_DRAWINGS "/showcase.dxf"}), "");
}

} // namespace
