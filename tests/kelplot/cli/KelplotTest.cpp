#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <algorithm>
#include <cmath>
#include <ostream>

#include "support/TemporaryDirectory.h"

namespace {

const QString plate = QStringLiteral(EXAMPLE_DRAWINGS "/flange_plate.dxf");

struct Outcome {
    int status;
    QString output;
    QString messages;
};

/// Runs the program in `directory`, without a display or a locale.
Outcome run(const TemporaryDirectory& directory, const QStringList& arguments) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "LANG", "LC_ALL"}) {
        environment.remove(QString::fromLatin1(name));
    }
    // For builds with sanitizers; to others these variables mean nothing.
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("fast_unwind_on_malloc=0"));
    environment.insert(QStringLiteral("LSAN_OPTIONS"),
                       QStringLiteral("print_suppressions=0:suppressions=" LEAK_SUPPRESSIONS));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QString::fromStdString(directory.path()));
    process.start(QStringLiteral(KELPLOT_PROGRAM), arguments);
    const bool ended = process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QStringList filesIn(const TemporaryDirectory& directory) {
    return QDir(QString::fromStdString(directory.path())).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

const std::string emptyDrawing = "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n";
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

struct StatusCase {
    const char* name;
    QStringList arguments;
    int status;
    QStringList told;  ///< what the messages must hold; none: there are none
    QStringList files; ///< that the run makes
};

std::ostream& operator<<(std::ostream& stream, const StatusCase& row) {
    return stream << row.name;
}

class KelplotStatus : public ::testing::TestWithParam<StatusCase> {};

TEST_P(KelplotStatus, GoesWithMessagesAndFiles) {
    const TemporaryDirectory directory;
    directory.write("line.dxf", oneLine);
    directory.write("empty.dxf", emptyDrawing);
    directory.write("junk.dxf", "this is no drawing\n");
    directory.write("cut.dxf", oneLine.substr(0, oneLine.size() - 20));
    directory.write("copies.dxf", endlessCopies());
    directory.write("parts.dxf", missingParts);
    const QStringList inputs = filesIn(directory);

    const Outcome outcome = run(directory, GetParam().arguments);
    EXPECT_EQ(outcome.status, GetParam().status) << outcome.messages.toStdString();
    EXPECT_EQ(outcome.messages.isEmpty(), GetParam().told.isEmpty()) << outcome.messages.toStdString();
    EXPECT_TRUE(outcome.messages.isEmpty() || outcome.messages.startsWith("kelplot: "))
        << "a message of a library's own: " << outcome.messages.toStdString();
    for (const QString& part : GetParam().told) {
        EXPECT_TRUE(outcome.messages.contains(part)) << outcome.messages.toStdString();
    }
    QStringList made = filesIn(directory);
    made.erase(std::remove_if(made.begin(), made.end(), [&](const QString& name) { return inputs.contains(name); }),
               made.end());
    EXPECT_EQ(made, GetParam().files);
}

INSTANTIATE_TEST_SUITE_P(
    All, KelplotStatus,
    ::testing::Values(
        StatusCase{"plot", {"line.dxf"}, 0, {}, {"line.pdf"}},
        StatusCase{"plot as asked", {"-o", "x.svg", "line.dxf"}, 0, {}, {"x.svg"}},
        StatusCase{"empty", {"empty.dxf"}, 0, {"kelplot: warning: empty.dxf: nothing to plot"}, {"empty.pdf"}},
        StatusCase{"empty and quiet", {"--quiet", "empty.dxf"}, 0, {}, {"empty.pdf"}},
        StatusCase{"empty and strict", {"--strict", "empty.dxf"}, 3, {"empty.dxf: nothing to plot"}, {}},
        StatusCase{"larger than the page", {"--scale", "1:1", "line.dxf"}, 0, {"line.dxf: ", "larger"}, {"line.pdf"}},
        StatusCase{"no such layer", {"--layers", "Edge,Hole", "line.dxf"}, 0, {"line.dxf: ", "Hole"}, {"line.pdf"}},
        StatusCase{"window", {"--window", "0,-50,100,50", "line.dxf"}, 0, {}, {"line.pdf"}},
        StatusCase{"window beside the drawing",
                   {"--window", "0,1,9,9", "line.dxf"},
                   0,
                   {"line.dxf: ", "in the window"},
                   {"line.pdf"}},
        StatusCase{"window larger than the page",
                   {"--window", "0,0,900,900", "--scale", "1:1", "line.dxf"},
                   0,
                   {"line.dxf: ", "the window is larger"},
                   {"line.pdf"}},
        StatusCase{"empty window", {"--window", "5,5,5,9", "line.dxf"}, 1, {"--window", "5,5,5,9", "corners"}, {}},
        StatusCase{"malformed window", {"--window", "5,5,9", "line.dxf"}, 1, {"--window", "X1,Y1,X2,Y2"}, {}},
        StatusCase{"wrong usage", {"--scale", "none", "line.dxf"}, 1, {"--scale", "--help"}, {}},
        StatusCase{"no such file", {"missing.dxf"}, 2, {"kelplot: missing.dxf: "}, {}},
        StatusCase{"directory", {"."}, 2, {"kelplot: .: "}, {}},
        StatusCase{"junk", {"junk.dxf"}, 3, {"kelplot: junk.dxf: "}, {}},
        StatusCase{"truncated", {"cut.dxf"}, 3, {"kelplot: cut.dxf: "}, {}},
        StatusCase{"no such target", {"-t", "nowhere", "line.dxf"}, 4, {"kelplot: nowhere/line.pdf: "}, {}},
        StatusCase{"full device", {"-o", "/dev/full", "line.dxf"}, 4, {"kelplot: /dev/full: "}, {}},
        StatusCase{"full device for an image",
                   {"--format", "png", "-o", "/dev/full", "line.dxf"},
                   4,
                   {"kelplot: /dev/full: No space left on device"},
                   {}},
        StatusCase{"too many copies", {"copies.dxf"}, 0, {"copies.dxf: too many block copies"}, {"copies.pdf"}},
        StatusCase{"strict about copies", {"--strict", "copies.dxf"}, 3, {"copies.dxf: too many block copies"}, {}},
        StatusCase{"blocks that are not there",
                   {"parts.dxf"},
                   0,
                   {"parts.dxf: 3 references to blocks that the drawing does not define: Bolt, Nut\n",
                    "parts.dxf: 2 dimensions without a block are left out\n"},
                   {"parts.pdf"}},
        StatusCase{"goes on after a failure",
                   {"junk.dxf", "missing.dxf", "line.dxf"},
                   3,
                   {"junk.dxf: ", "missing.dxf: "},
                   {"line.pdf"}}));

TEST(Kelplot, HelpAndVersionGoToStandardOutput) {
    const TemporaryDirectory directory;
    const Outcome help = run(directory, {"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.output.contains("--scale")) << help.output.toStdString();
    const Outcome version = run(directory, {"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.output.startsWith("kelplot ")) << version.output.toStdString();
    EXPECT_EQ(help.messages + version.messages, "");
}

TEST(Kelplot, ListsTheLayersOfADrawing) {
    const TemporaryDirectory directory;
    const Outcome outcome = run(directory, {"--list-layers", plate});
    EXPECT_EQ(outcome.status, 0) << outcome.messages.toStdString();
    EXPECT_TRUE(outcome.output.contains("OUTLINE\tplotted\n")) << outcome.output.toStdString();
    EXPECT_TRUE(outcome.output.contains("CONSTRUCTION\tnot plotted\n")) << outcome.output.toStdString();
    EXPECT_EQ(filesIn(directory), QStringList());
}

TEST(Kelplot, TakesFileNamesInAnyScript) {
    const TemporaryDirectory directory;
    directory.write("плита \u00e4.dxf", oneLine);
    const Outcome outcome = run(directory, {QStringLiteral("плита \u00e4.dxf")});
    EXPECT_EQ(outcome.status, 0) << outcome.messages.toStdString();
    EXPECT_TRUE(directory.exists("плита \u00e4.pdf"));
}

TEST(Kelplot, ProgressIsShownOnDemandAndErased) {
    const TemporaryDirectory directory;
    const Outcome outcome = run(directory, {"--progress", plate});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.messages.contains("flange_plate.dxf: ")) << outcome.messages.toStdString();
    EXPECT_TRUE(outcome.messages.endsWith("\r")) << outcome.messages.toStdString();
}

/// The bounding box of the pixels darker than `limit` on an image that the program makes of a drawing.
QRect inkOf(const TemporaryDirectory& directory, const QStringList& arguments, int limit = 128) {
    const Outcome outcome = run(directory, QStringList{"-o", "ink.png", "--dpi", "254"} + arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.messages.toStdString();
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

TEST(Kelplot, AFrameAtTrueSizeMeasuresWhatTheDrawingSays) {
    const TemporaryDirectory directory;
    // The sheet's frame runs from (10, 10) to (287, 200) millimetres, drawn half a millimetre wide.
    const QRect ink = inkOf(directory, {"--scale", "1:1", "--center", plate});
    EXPECT_NEAR(ink.width(), 2770 + 5, 2);
    EXPECT_NEAR(ink.height(), 1900 + 5, 2);
    EXPECT_NEAR(ink.center().x(), 1485, 2);
    EXPECT_NEAR(ink.center().y(), 1050, 2);
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

/// A drawing of one solid hatch for each square of a raster of 40 by 40, each with a jagged border of 200 corners.
std::string rasterOfHatches() {
    std::string text = "0\nSECTION\n2\nENTITIES\n";
    for (int square = 0; square < 1600; ++square) {
        text += "0\nHATCH\n8\n0\n62\n5\n2\nSOLID\n70\n1\n91\n1\n92\n2\n72\n0\n73\n1\n93\n200\n";
        for (int corner = 0; corner < 200; ++corner) {
            const double angle = corner * 0.0314159265;
            const double radius = corner % 2 == 0 ? 5.0 : 4.0 + (corner * square) % 7 * 0.1;
            text += "10\n" + std::to_string(square % 40 * 10 + radius * std::cos(angle)) + "\n20\n" +
                    std::to_string(square / 40 * 10 + radius * std::sin(angle)) + "\n";
        }
        text += "97\n0\n75\n0\n76\n1\n98\n0\n";
    }
    return text + "0\nENDSEC\n0\nEOF\n";
}

TEST(KelplotPart, MakesTheFileAsSmallAsThePart) {
    const TemporaryDirectory directory;
    directory.write("map.dxf", rasterOfHatches());
    ASSERT_EQ(run(directory, {"map.dxf"}).status, 0);
    ASSERT_EQ(run(directory, {"-o", "part.pdf", "--window", "100,100,150,150", "map.dxf"}).status, 0);
    // The window shows a sixty-fourth of the drawing.
    EXPECT_LT(directory.read("part.pdf").size() * 10, directory.read("map.pdf").size());
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

struct WindowCase {
    const char* name;
    QStringList arguments;
    QRect shown; ///< pixels, a tenth of a millimetre each
};

std::ostream& operator<<(std::ostream& stream, const WindowCase& row) {
    return stream << row.name;
}

class KelplotWindow : public ::testing::TestWithParam<WindowCase> {};

TEST_P(KelplotWindow, ShowsNothingOutside) {
    const TemporaryDirectory directory;
    directory.write("shapes.dxf", shapesAcross());
    const QRect ink = inkOf(directory, GetParam().arguments + QStringList{"--quiet", "shapes.dxf"}, 255);
    const QRect& shown = GetParam().shown;
    EXPECT_TRUE(shown.adjusted(-1, -1, 1, 1).contains(ink))
        << ink.left() << ' ' << ink.top() << ' ' << ink.right() << ' ' << ink.bottom();
    EXPECT_TRUE(ink.contains(shown.adjusted(2, 2, -2, -2))) << "the shapes reach all edges";
}

INSTANTIATE_TEST_SUITE_P(
    All, KelplotWindow,
    ::testing::Values(
        WindowCase{"fitted", {"--paper", "100x200", "--window", "0,0,50,50"}, QRect(50, 550, 900, 900)},
        WindowCase{
            "to scale", {"--paper", "100x200", "--scale", "1:1", "--window", "50,0,0,50"}, QRect(50, 1450, 500, 500)},
        WindowCase{"to scale in the middle",
                   {"--paper", "100x200", "--scale", "1:1", "--center", "--window", "0,0,50,50"},
                   QRect(250, 750, 500, 500)},
        WindowCase{"larger than the page",
                   {"--paper", "100x100", "--margins", "10,20,30,40", "--scale", "2:1", "--window", "0,0,50,50"},
                   QRect(100, 200, 600, 400)},
        WindowCase{"no window, larger than the page",
                   {"--paper", "100x100", "--margins", "10", "--scale", "1:1", "--center"},
                   QRect(100, 100, 800, 800)}));

TEST(KelplotPart, TravelsWithAnSvgFile) {
    const TemporaryDirectory directory;
    directory.write("shapes.dxf", shapesAcross());
    ASSERT_EQ(run(directory, {"-o", "part.svg", "--paper", "100x200", "--window", "0,0,50,50", "shapes.dxf"}).status,
              0);
    const QString svg = QString::fromStdString(directory.read("part.svg"));
    EXPECT_TRUE(
        svg.contains(R"(<clipPath id="visible"><rect x="500" y="5500" width="9000" height="9000"/></clipPath>)"));
    const int picture = svg.indexOf("<g ");
    EXPECT_TRUE(svg.mid(picture).startsWith(R"x(<g clip-path="url(#visible)" )x"));
    ASSERT_EQ(run(directory, {"-o", "whole.svg", "shapes.dxf"}).status, 0);
    EXPECT_EQ(directory.read("whole.svg").find("clip"), std::string::npos);
}

TEST(Kelplot, DashesOfAThinCircleAreAsLongAsTheLineTypeSays) {
    const TemporaryDirectory directory;
    directory.write("circle.dxf",
                    "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLTYPE\n0\nLTYPE\n2\nEVEN\n70\n0\n3\n\n72\n65\n73\n2\n"
                    "40\n20\n49\n10\n49\n-10\n0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n8\n0\n"
                    "6\nEVEN\n370\n0\n10\n50\n20\n50\n40\n40\n0\nENDSEC\n0\nEOF\n");
    ASSERT_EQ(run(directory,
                  {"-o", "c.png", "--dpi", "254", "--paper", "110x110", "--scale", "1:1", "--center", "circle.dxf"})
                  .status,
              0);
    const QImage image(QString::fromStdString(directory.path("c.png")));
    int wrong = 0;
    for (double along = 2.5; along < 250.0; along += 5.0) { // millimetres; a quarter of a dash from its ends
        const double angle = along / 40.0;
        const int x = static_cast<int>(std::lround(550.0 + 400.0 * std::cos(angle)));
        const int y = static_cast<int>(std::lround(550.0 - 400.0 * std::sin(angle)));
        int darkest = 255;
        for (int i = -1; i <= 1; ++i) {
            darkest = std::min({darkest, qGray(image.pixel(x + i, y)), qGray(image.pixel(x, y + i))});
        }
        const bool inDash = std::fmod(along, 20.0) < 10.0;
        wrong += inDash != (darkest < 160) ? 1 : 0;
    }
    EXPECT_EQ(wrong, 0);
}

} // namespace
