// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>

#include "kelplot/cli/KelplotRun.h"

namespace {

TEST(Kelplot, ListsThePapersForPrograms) {
    const TemporaryDirectory directory;
    QMap<QString, QJsonObject> papers;
    const QJsonArray list =
        QJsonDocument::fromJson(run(directory, {"--list-papers", "--json"}).output.toUtf8()).array();
    for (const auto& entry : list) {
        papers.insert(entry.toObject()["name"].toString(), entry.toObject());
    }
    EXPECT_EQ(papers.size(), list.size()) << "names are not given twice";
    const struct {
        const char* name;
        double width, height;
    } standard[] = {{"A0", 841, 1189},         {"A4", 210, 297},         {"2A0", 1189, 1682},
                    {"B1", 707, 1000},         {"Legal", 215.9, 355.6},  {"ANSI A", 215.9, 279.4},
                    {"ANSI E", 863.6, 1117.6}, {"ARCH A", 228.6, 304.8}, {"ARCH E1", 762, 1066.8},
                    {"DIN A4x3", 297, 630},    {"DIN A0x3", 1189, 2523}};
    for (const auto& row : standard) {
        const QJsonObject& paper = papers[row.name];
        EXPECT_DOUBLE_EQ(paper["width"].toDouble(), row.width) << row.name;
        EXPECT_DOUBLE_EQ(paper["height"].toDouble(), row.height) << row.name;
        EXPECT_GT(paper["margins"].toObject()["left"].toDouble(), 0.0) << row.name;
    }
    EXPECT_EQ(papers["A4"]["number"].toInt(), 9);
}

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

TEST(Kelplot, TextsOfAPdfCanBeSearchedOnDemand) {
    const TemporaryDirectory directory;
    const auto wordsIn = [&](const char* mode) {
        EXPECT_EQ(run(directory, {"--text", mode, "-o", "x.pdf", EXAMPLE_DRAWINGS "/showcase.dxf"}).status, 0);
        return run(directory, {"x.pdf", "-"}, "pdftotext").output;
    };
    EXPECT_EQ(wordsIn("outlines").trimmed(), "");
    const QString found = wordsIn("fonts");
    for (const char* const word : {"Dvořák", "Крышка", "Κάλυμμα", "轴承盖", "6 × Ø9"}) {
        EXPECT_TRUE(found.contains(word)) << word;
    }
}

} // namespace
