// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QFile>

#include "kelplot/cli/KelplotRun.h"

namespace {

TEST(Kelplot, AListThatCannotBeWrittenIsAFailure) {
    const TemporaryDirectory directory;
    EXPECT_EQ(run(directory, {"-c", "exec " KELPLOT_PROGRAM " --list-papers >/dev/full"}, "/bin/sh").status, 4);
}

TEST(Kelplot, WithoutItsFolderItTakesSizesOnly) {
    const TemporaryDirectory directory;
    directory.write("line.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n11\n500\n0\nENDSEC\n0\nEOF\n");
    const QString program = QString::fromStdString(directory.path("kelplot"));
    ASSERT_TRUE(QFile::copy(KELPLOT_PROGRAM, program));
    const struct {
        QStringList arguments;
        int status;
        const char* told;
    } rows[] = {{{"--paper", "A3", "line.dxf"}, 2, "/Drivers/papers.ini: no such file"},
                {{"--list-papers"}, 2, "/Drivers/papers.ini: no such file"},
                {{"line.dxf"}, 0, "/Drivers/papers.ini: no such file; the paper is A4"},
                {{"--paper", "420x297", "line.dxf"}, 0, nullptr}};
    for (const auto& row : rows) {
        const Outcome outcome = run(directory, row.arguments, program);
        EXPECT_EQ(outcome.status, row.status) << row.arguments[0].toStdString();
        EXPECT_TRUE(row.told ? outcome.messages.contains(row.told) : outcome.messages.isEmpty())
            << outcome.messages.toStdString();
    }
}

TEST(Kelplot, TextsOfAPdfCanBeSearchedUnlessTheyAreOutlines) {
    const TemporaryDirectory directory;
    const QString showcase = QStringLiteral(EXAMPLE_DRAWINGS "/showcase.dxf");
    const auto wordsIn = [&](const char* mode) {
        EXPECT_EQ(run(directory, {"--text", mode, "-o", "x.pdf", showcase}).status, 0);
        return run(directory, {"x.pdf", "-"}, "pdftotext").output;
    };
    EXPECT_EQ(wordsIn("outlines").trimmed(), "");
    const QString found = wordsIn("fonts");
    for (const char* const word : {"Dvořák", "Крышка", "Κάλυμμα", "轴承盖", "6 × Ø9"}) {
        EXPECT_TRUE(found.contains(word)) << word;
    }
}

TEST(Kelplot, StandardOutputTakesNothingButThePlot) {
    const TemporaryDirectory directory;
    directory.write("line.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n11\n500\n0\nENDSEC\n0\nEOF\n");
    const struct {
        const char* arguments;
        const char* output;   ///< the last line
        const char* messages; ///< the last words
    } rows[] = {{"-", "%%EOF\n", ""},
                {"- line.dxf", "%%EOF\n", "line.pdf\n"},
                {"-o - line.dxf", "%%EOF\n", ""},
                {"-t d -", "d/drawing.pdf\n", ""},
                {"--save-paper Own --paper 100x100 -o - line.dxf", "%%EOF\n", "saved as \"Own\"\n"}};
    for (const auto& row : rows) {
        const QString command = QString(KELPLOT_PROGRAM " %1 <line.dxf | tail -n 1").arg(row.arguments);
        const Outcome outcome = run(directory, {"-c", command}, "/bin/sh");
        EXPECT_EQ(outcome.output, row.output) << row.arguments;
        EXPECT_EQ(outcome.messages.section(' ', -3), row.messages) << row.arguments;
    }
}

} // namespace
