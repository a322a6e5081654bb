// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cmath>

#include "kelplot/cli/KelplotRun.h"
#include "support/TemporaryDirectory.h"

namespace {

const QString plate = QStringLiteral(EXAMPLE_DRAWINGS "/flange_plate.dxf");

const std::string oneLine = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nEdge\n10\n0\n20\n0\n11\n500\n21\n0\n"
                            "0\nENDSEC\n0\nEOF\n";

/// A few bytes that ask for more copies of a line than any machine draws: arrays of arrays of it.
std::string endlessCopies() {
    constexpr int levels = 12;
    const std::string array = "\n70\n100\n71\n100\n44\n3\n45\n3\n";
    std::string text = "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nB0\n0\nLINE\n10\n0\n20\n0\n11\n1\n21\n1\n0\nENDBLK\n";
    for (int i = 1; i < levels; ++i) {
        text +=
            "0\nBLOCK\n2\nB" + std::to_string(i) + "\n0\nINSERT\n2\nB" + std::to_string(i - 1) + array + "0\nENDBLK\n";
    }
    return text + "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nINSERT\n2\nB" + std::to_string(levels - 1) + array +
           "0\nENDSEC\n0\nEOF\n";
}

const std::string missingParts = "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\n0\n20\n0\n11\n500\n21\n0\n"
                                 "0\nINSERT\n2\nBolt\n0\nINSERT\n2\nNut\n0\nINSERT\n2\nBOLT\n"
                                 "0\nDIMENSION\n10\n9\n0\nDIMENSION\n10\n8\n0\nENDSEC\n0\nEOF\n";

/// A directory with drawings of every kind.
struct Drawings : TemporaryDirectory {
    Drawings() {
        write("line.dxf", oneLine);
        write("empty.dxf", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
        write("junk.dxf", "this is no drawing\n");
        write("cut.dxf", oneLine.substr(0, oneLine.size() - 20));
        write("copies.dxf", endlessCopies());
        write("parts.dxf", missingParts);
        write("sheet.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n67\n1\n11\n500\n0\nENDSEC\n0\nEOF\n");
    }
};

TEST(Kelplot, StatusGoesWithMessagesAndFiles) {
    const struct {
        const char* name;
        QStringList arguments;
        int status;
        QStringList told;  ///< what the messages must hold; none: there are none
        QStringList files; ///< that the run makes
    } rows[] = {
        {"empty and quiet", {"--quiet", "empty.dxf", "line.dxf"}, 0, {}, {"empty.pdf", "line.pdf"}},
        {"wrong usage", {"--scale", "none", "line.dxf"}, 1, {"--scale", "--help"}, {}},
        {"cannot be opened", {"missing.dxf", "."}, 2, {"kelplot: missing.dxf: ", "\nkelplot: .: "}, {}},
        {"the worst counts",
         {"junk.dxf", "cut.dxf", "missing.dxf", "line.dxf"},
         3,
         {"kelplot: junk.dxf: ", "\nkelplot: cut.dxf: ", "\nkelplot: missing.dxf: "},
         {"line.pdf"}},
        {"strict", {"--strict", "empty.dxf"}, 3, {"kelplot: empty.dxf: nothing to plot"}, {}},
        {"no such target", {"-t", "nowhere", "line.dxf"}, 4, {"kelplot: nowhere/line.pdf: "}, {}},
        {"full for an image", {"--format", "png", "-o", "/dev/full", "line.dxf"}, 4, {"/dev/full: No space left"}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Drawings directory;
        const QStringList inputs = filesIn(directory);
        const Outcome outcome = run(directory, row.arguments);
        const std::string messages = outcome.messages.toStdString();
        EXPECT_EQ(outcome.status, row.status) << messages;
        EXPECT_EQ(messages.empty(), row.told.isEmpty()) << messages;
        EXPECT_TRUE(messages.empty() || messages.rfind("kelplot: ", 0) == 0)
            << "a message of a library's own: " << messages;
        for (const QString& part : row.told) {
            EXPECT_TRUE(outcome.messages.contains(part)) << messages;
        }
        QStringList made = filesIn(directory);
        made.erase(std::remove_if(made.begin(), made.end(), [&](const QString& name) { return inputs.contains(name); }),
                   made.end());
        EXPECT_EQ(made, row.files);
    }
}

TEST(Kelplot, WarningsNameTheDrawingAndStrictTakesThemForFailures) {
    const struct {
        const char* drawing;
        QStringList arguments;
        const char* told; ///< empty: nothing
    } rows[] = {
        {"line.dxf", {}, ""},
        {"sheet.dxf", {}, ""}, // what lies in paper space is plotted where there is nothing else
        {"empty.dxf", {}, "nothing to plot\n"},
        {"line.dxf", {"--scale", "1:1"}, "the drawing is larger than the paper at this scale\n"},
        {"line.dxf", {"--layers", "Edge,Hole"}, "no layer is named \"Hole\"\n"},
        {"line.dxf", {"--window", "0,-50,100,50"}, ""},
        {"line.dxf", {"--window", "0,1,9,9"}, "nothing to plot in the window\n"},
        {"line.dxf",
         {"--window", "0,0,900,900", "--scale", "1:1"},
         "the window is larger than the paper at this scale\n"},
        {"copies.dxf", {}, "too many block copies; the plot is incomplete\n"},
        {"parts.dxf", {}, "3 references to blocks that the drawing does not define: Bolt, Nut\n"},
        {"parts.dxf", {}, "2 dimensions without a block are left out\n"},
        {EXAMPLE_DRAWINGS "/showcase.dxf", {}, ""},
    };
    const Drawings directory;
    for (const auto& row : rows) {
        const QStringList arguments = row.arguments + QStringList{row.drawing};
        const std::string told = plotHere(directory, arguments);
        const std::string expected = *row.told == '\0' ? "" : std::string(row.drawing) + ": " + row.told;
        EXPECT_TRUE(expected.empty() ? told.empty() : told.find("kelplot: warning: " + expected) != std::string::npos)
            << expected << told;
        const std::string refused = plotHere(directory, QStringList{"--strict"} + arguments);
        EXPECT_EQ(refused.empty(), expected.empty()) << refused;
    }
}

TEST(Kelplot, TextsAskedForGoToStandardOutput) {
    const TemporaryDirectory directory;
    const std::pair<QStringList, const char*> rows[] = {
        {{"--help"}, "--scale"},
        {{"--version"}, "\nLicence GPL-2.0-or-later;"},
        {{"--list-layers", plate}, "OUTLINE\tplotted\n"},
        {{"--list-layers", plate}, "CONSTRUCTION\tnot plotted\n"},
    };
    for (const auto& [arguments, part] : rows) {
        const Outcome outcome = run(directory, arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.messages, "");
        EXPECT_TRUE(outcome.output.contains(part)) << outcome.output.toStdString();
    }
    EXPECT_EQ(filesIn(directory), QStringList());
}

TEST(Kelplot, TakesNamesInAnyScriptAndShowsProgressOnDemand) {
    const TemporaryDirectory directory;
    directory.write("плита \u00e4.dxf", oneLine);
    const Outcome outcome = run(directory, {"--progress", QStringLiteral("плита \u00e4.dxf")});
    EXPECT_EQ(outcome.status, 0) << outcome.messages.toStdString();
    EXPECT_TRUE(directory.exists("плита \u00e4.pdf"));
    EXPECT_TRUE(outcome.messages.contains("плита \u00e4.dxf: ")) << outcome.messages.toStdString();
    EXPECT_TRUE(outcome.messages.endsWith("\r")) << "the line of progress is erased";
}

/// The bounding box of the pixels darker than `limit` on an image that the program makes of a drawing.
QRect inkOf(const TemporaryDirectory& directory, const QStringList& arguments, int limit = 128) {
    EXPECT_EQ(plotHere(directory, QStringList{"-o", "ink.png", "--dpi", "254"} + arguments), "");
    const QImage image(QString::fromStdString(directory.path("ink.png")));
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < limit) {
                ink = ink.united(QRect(x, y, 1, 1));
            }
        }
    }
    return ink;
}

TEST(Kelplot, LayersLeftOutAreLeftOutOfTheFit) {
    const TemporaryDirectory directory;
    const QRect frame = inkOf(directory, {plate});
    EXPECT_NEAR(frame.width(), 2870, 6) << "the frame fills the sheet but for the margins";
    // The hatched sections alone are an upright picture of 63 by 110 millimetres.
    const QRect sections = inkOf(directory, {"--monochrome", "--layers", "hatch", plate});
    EXPECT_NEAR(sections.height(), 2870, 6) << "and so do the sections on their own sheet";
    EXPECT_NEAR(sections.width(), 2870.0 * 63 / 110, 6);
}

/// One drawing with a line, a circle, a dashed line, a wide line, a curve of many points and an area, all of which
/// run from within the square from (0, 0) to (50, 50) far beyond it, with a line weight of two millimetres.
std::string shapesAcross() {
    const std::string style = "8\n0\n370\n200\n";
    std::string text = "0\nSECTION\n2\nENTITIES\n";
    text += "0\nLINE\n" + style + "10\n-500\n20\n10\n11\n500\n21\n30\n";
    text += "0\nCIRCLE\n" + style + "10\n50\n20\n25\n40\n20\n";
    text += "0\nLWPOLYLINE\n" + style + "90\n2\n70\n0\n43\n6\n10\n25\n20\n-300\n10\n25\n20\n300\n";
    text += "0\nLWPOLYLINE\n" + style + "90\n400\n70\n0\n";
    for (int i = 0; i < 400; ++i) {
        text += "10\n" + std::to_string(i * 0.5 - 75.0) + "\n20\n" + std::to_string(25.0 + 60.0 * std::sin(i)) + "\n";
    }
    text += "0\nSOLID\n8\n0\n10\n40\n20\n40\n11\n400\n21\n40\n12\n40\n22\n400\n13\n400\n23\n400\n";
    return text + "0\nENDSEC\n0\nEOF\n";
}

TEST(KelplotPart, ShowsNothingOutside) {
    const struct {
        const char* name;
        QStringList arguments;
        QRect shown; ///< pixels, a tenth of a millimetre each
    } rows[] = {
        {"fitted", {"--paper", "100x200", "--window", "0,0,50,50"}, QRect(50, 550, 900, 900)},
        {"to scale", {"--paper", "100x200", "--scale", "1:1", "--window", "50,0,0,50"}, QRect(50, 1450, 500, 500)},
        {"to scale in the middle",
         {"--paper", "100x200", "--scale", "1:1", "--center", "--window", "0,0,50,50"},
         QRect(250, 750, 500, 500)},
        {"larger than the page",
         {"--paper", "100x100", "--margins", "10,20,30,40", "--scale", "2:1", "--window", "0,0,50,50"},
         QRect(100, 200, 600, 400)},
        {"no window, larger than the page",
         {"--paper", "100x100", "--margins", "10", "--scale", "1:1", "--center"},
         QRect(100, 100, 800, 800)},
    };
    for (const auto& row : rows) {
        const TemporaryDirectory directory;
        directory.write("shapes.dxf", shapesAcross());
        const QRect ink = inkOf(directory, row.arguments + QStringList{"--quiet", "shapes.dxf"}, 255);
        EXPECT_TRUE(row.shown.adjusted(-1, -1, 1, 1).contains(ink))
            << row.name << ": " << ink.left() << ' ' << ink.top() << ' ' << ink.right() << ' ' << ink.bottom();
        EXPECT_TRUE(ink.contains(row.shown.adjusted(2, 2, -2, -2))) << row.name << ": the shapes reach all edges";
    }
}

TEST(KelplotPart, TravelsWithAnSvgFile) {
    const TemporaryDirectory directory;
    directory.write("shapes.dxf", shapesAcross());
    plotHere(directory, {"-o", "part.svg", "--paper", "100x200", "--window", "0,0,50,50", "shapes.dxf"});
    const QString svg = QString::fromStdString(directory.read("part.svg"));
    EXPECT_TRUE(
        svg.contains(R"(<clipPath id="visible"><rect x="500" y="5500" width="9000" height="9000"/></clipPath>)"));
    const int picture = svg.indexOf("<g ");
    EXPECT_TRUE(svg.mid(picture).startsWith(R"x(<g clip-path="url(#visible)" )x"));
    plotHere(directory, {"-o", "whole.svg", "shapes.dxf"});
    EXPECT_EQ(directory.read("whole.svg").find("clip"), std::string::npos);
}

} // namespace
