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

TEST(Kelplot, BashCompletesOptionsTheirValuesAndFiles) {
    const TemporaryDirectory directory;
    for (const char* const name : {"a.dxf", "two words.DXF", "b.ini"}) {
        directory.write(name, "");
    }
    for (const char* const name : {"Bob's", "B `echo x` \\ $(echo y)", "Bänner"}) {
        EXPECT_EQ(run(directory, {"--paper", "90x90", "--save-paper", name}).status, 0);
    }
    const std::pair<const char*, const char*> rows[] = {
        // the words as bash parts them, the last one cut short
        {"''", "a.dxf\nconfig\ntwo words.DXF\n"},
        {"a.dxf t", "two words.DXF\n"},
        {"--lay", "--layers\n--layout\n"},
        {"--grey b", ""},
        {"--pens b", "b.ini\n"},
        {"-t ''", "config\n"},
        {"--sides ''", "long\none\nshort\n"},
        {"--format = p", "pdf\npng\n"},
        {"--units =", "cm\nft\nin\nm\nmm\nnone\n"},
        {"--scale 1", ""},
        {"--paper 'ANSI '", "ANSI A\nANSI B\nANSI C\nANSI D\nANSI E\n"},
        {"--tile B", "B `echo x` \\ $(echo y)\nB0\nB1\nB2\nB3\nB4\nB5\nBob's\nBänner\n"},
    };
    for (const auto& [words, found] : rows) {
        const QString script =
            QString("kelplot() { '" KELPLOT_PROGRAM "' \"$@\"; }; source <(kelplot --completion bash); "
                    "COMP_WORDS=(kelplot %1) COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _kelplot; "
                    "[ ${#COMPREPLY[@]} = 0 ] || printf '%s\\n' \"${COMPREPLY[@]}\" | LC_ALL=C sort")
                .arg(words);
        const Outcome outcome = run(directory, {"-c", script}, "bash");
        EXPECT_EQ(outcome.output.toStdString() + outcome.messages.toStdString(), found) << words;
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
