// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

#include "kelplot/cli/KelplotRun.h"

namespace {

const std::string oneLine = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nEdge\n62\n1\n10\n0\n20\n0\n11\n500\n21\n0\n"
                            "0\nENDSEC\n0\nEOF\n";

/// A directory with a drawing in it and a folder for the user's settings.
class KelplotSettings : public ::testing::Test {
protected:
    void SetUp() override {
        directory.write("line.dxf", oneLine);
        ASSERT_TRUE(QDir(QString::fromStdString(directory.path())).mkpath("config/kelplot"));
    }

    /// The size that the picture of a plot states.
    QString plottedSize(const QStringList& arguments) {
        EXPECT_EQ(plotHere(directory, QStringList{"-o", "size.svg"} + arguments + QStringList{"line.dxf"}), "");
        const QString svg = QString::fromStdString(directory.read("size.svg"));
        const int start = svg.indexOf("width=");
        return svg.mid(start, svg.indexOf('\n', start) - start).trimmed();
    }
    void expectTold(const QStringList& arguments, const char* part) {
        const std::string told = plotHere(directory, arguments);
        EXPECT_NE(told.find(part), std::string::npos) << arguments.join(' ').toStdString() << ": " << told;
    }

    TemporaryDirectory directory;
};

TEST_F(KelplotSettings, ListsThePapersWithSizesAndMargins) {
    const Outcome outcome = run(directory, {"--list-papers", "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.messages.toStdString();
    QMap<QString, QJsonObject> papers;
    const QJsonArray list = QJsonDocument::fromJson(outcome.output.toUtf8()).array();
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
        ASSERT_TRUE(papers.contains(row.name)) << row.name;
        const QJsonObject& paper = papers[row.name];
        EXPECT_DOUBLE_EQ(paper["width"].toDouble(), row.width) << row.name;
        EXPECT_DOUBLE_EQ(paper["height"].toDouble(), row.height) << row.name;
        EXPECT_GT(paper["margins"].toObject()["left"].toDouble(), 0.0) << row.name;
    }
    EXPECT_EQ(papers["A4"]["number"].toInt(), 9);
    EXPECT_TRUE(run(directory, {"--list-papers"}).output.contains("\nANSI D\t558.8x863.6\t5,5,5,5\n"));
}

TEST_F(KelplotSettings, AListThatCannotBeWrittenIsAFailure) {
    const QString command = QStringLiteral("exec " KELPLOT_PROGRAM " --list-papers >/dev/full");
    EXPECT_EQ(run(directory, {"-c", command}, "/bin/sh").status, 4);
}

TEST_F(KelplotSettings, APaperOfOnesOwnIsSavedAndFoundAgain) {
    const QStringList size = {"--paper", "914.4x5000", "--margins", "10,20,30,40"};
    const Outcome saved = run(directory, size + QStringList{"--save-paper", "Bänner"});
    EXPECT_EQ(saved.status, 0) << saved.messages.toStdString();
    EXPECT_TRUE(run(directory, {"--list-papers"}).output.startsWith("Bänner\t914.4x5000\t10,20,30,40\town\n4A0\t"));
    const QString asSize = plottedSize(size);
    const std::string picture = directory.read("size.svg");
    EXPECT_EQ(plottedSize({"--paper", "BÄNNER"}), asSize);
    EXPECT_EQ(directory.read("size.svg"), picture) << "margins and position are the same";
    expectTold({"--paper", "90x90", "--save-paper", "bänner"}, "there is a paper \"Bänner\" already");
    EXPECT_EQ(plotHere(directory, {"--paper", "90x90", "--save-paper", "Coaster", "line.dxf"}), "");
    EXPECT_TRUE(directory.exists("line.pdf")) << "a drawing is plotted in the same run";
    EXPECT_NE(plottedSize({"--paper", "coaster"}), asSize);
}

TEST_F(KelplotSettings, ADamagedPaperFileIsToldAndStaysAsItIs) {
    const std::string damaged = "[General]\nPaperCount=3\n[Paper 0]\nName=Label\nWidth=500\nLength=300\n";
    directory.write("config/kelplot/papers.ini", damaged);
    const char* const fault = "papers.ini: PaperCount is 3, but there is no section [Paper 1]";
    expectTold({"--paper", "A1", "line.dxf"}, fault);
    expectTold({"line.dxf"}, fault);
    expectTold({"--paper", "90x90", "--save-paper", "Coaster"}, fault);
    EXPECT_EQ(plotHere(directory, {"--paper", "90x90", "line.dxf"}), "") << "a size needs no list";
    const Outcome list = run(directory, {"--list-papers"});
    EXPECT_EQ(list.status, 2);
    EXPECT_TRUE(list.messages.contains(fault)) << list.messages.toStdString();
    EXPECT_TRUE(list.output.contains("A4\t210x297")) << "those of the device are listed";
    EXPECT_EQ(directory.read("config/kelplot/papers.ini"), damaged);
}

TEST_F(KelplotSettings, WithoutItsFolderTheProgramTakesSizesOnly) {
    const QString program = QString::fromStdString(directory.path("kelplot"));
    ASSERT_TRUE(QFile::copy(KELPLOT_PROGRAM, program));
    const Outcome named = run(directory, {"--paper", "A3", "line.dxf"}, program);
    EXPECT_EQ(named.status, 2);
    EXPECT_TRUE(named.messages.contains("/Drivers/papers.ini: no such file")) << named.messages.toStdString();
    EXPECT_FALSE(directory.exists("line.pdf"));
    EXPECT_EQ(run(directory, {"--list-papers"}, program).status, 2);
    const Outcome usual = run(directory, {"line.dxf"}, program);
    EXPECT_EQ(usual.status, 0);
    EXPECT_TRUE(usual.messages.contains("Drivers/papers.ini: no such file; the paper is A4"));
    const Outcome sized = run(directory, {"--paper", "420x297", "line.dxf"}, program);
    EXPECT_EQ(std::to_string(sized.status) + sized.messages.toStdString(), "0");
}

TEST_F(KelplotSettings, DefaultsOfTheUserGoBeforeThoseOfTheProgram) {
    directory.write("config/kelplot/kelplot.ini", "[Defaults]\npaper=A1\nformat=svg\npens=wide.ini\n");
    directory.write("config/kelplot/wide.ini", "[Pens]\nother=5\n");
    EXPECT_EQ(plotHere(directory, {"line.dxf"}), "");
    EXPECT_TRUE(directory.exists("line.svg"));
    EXPECT_EQ(plottedSize({}), R"(width="841mm" height="594mm")");
    EXPECT_EQ(plottedSize({"--paper", "A3", "--portrait"}), R"(width="297mm" height="420mm")");
    const struct {
        const char* defaults;
        const char* paper;
        const char* told;
    } rows[] = {
        {"paper=A99", nullptr, "kelplot.ini: paper: \"A99\""},
        {"dpi=fine", nullptr, "kelplot.ini: dpi: \"fine\""},
        {"margins=100", "A6", "kelplot.ini: margins: they leave"},
        {"papr=A3", "A0", "\"papr\" is no default; the nearest are paper, "},
        {"pens=nowhere.ini", "A0", "nowhere.ini: no such file"},
    };
    for (const auto& row : rows) {
        directory.write("config/kelplot/kelplot.ini", std::string("[Defaults]\n") + row.defaults + "\n");
        expectTold((row.paper ? QStringList{"--paper", row.paper} : QStringList()) + QStringList{"line.dxf"}, row.told);
    }
    EXPECT_EQ(run(directory, {"--help"}).status, 0);
}

TEST_F(KelplotSettings, APenTableSetsWidthAndInk) {
    directory.write("pens.ini", "[Pens]\n1=4,0000ff,50\n");
    plotHere(directory, {"-o", "pens.png", "--dpi", "254", "--paper", "100x100", "--pens", "pens.ini", "line.dxf"});
    const QImage image(QString::fromStdString(directory.path("pens.png")));
    int covered = 0;
    for (int y = 0; y < image.height(); ++y) {
        covered += image.pixelColor(500, y) == QColor(127, 127, 255) ? 1 : 0;
    }
    EXPECT_NEAR(covered, 40, 1);
}

} // namespace
