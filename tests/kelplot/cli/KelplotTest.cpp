#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <algorithm>
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
    const QStringList inputs = filesIn(directory);

    const Outcome outcome = run(directory, GetParam().arguments);
    EXPECT_EQ(outcome.status, GetParam().status) << outcome.messages.toStdString();
    EXPECT_EQ(outcome.messages.isEmpty(), GetParam().told.isEmpty()) << outcome.messages.toStdString();
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
        StatusCase{"wrong usage", {"--scale", "none", "line.dxf"}, 1, {"--scale", "--help"}, {}},
        StatusCase{"no such file", {"missing.dxf"}, 2, {"kelplot: missing.dxf: "}, {}},
        StatusCase{"directory", {"."}, 2, {"kelplot: .: "}, {}},
        StatusCase{"junk", {"junk.dxf"}, 3, {"kelplot: junk.dxf: "}, {}},
        StatusCase{"truncated", {"cut.dxf"}, 3, {"kelplot: cut.dxf: "}, {}},
        StatusCase{"no such target", {"-t", "nowhere", "line.dxf"}, 4, {"kelplot: nowhere/line.pdf: "}, {}},
        StatusCase{"full device", {"-o", "/dev/full", "line.dxf"}, 4, {"kelplot: /dev/full: "}, {}},
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

/// The dark pixels' bounding box on an image that the program makes of a drawing.
QRect inkOf(const TemporaryDirectory& directory, const QStringList& arguments) {
    const Outcome outcome = run(directory, QStringList{"-o", "ink.png", "--dpi", "254"} + arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.messages.toStdString();
    const QImage image(QString::fromStdString(directory.path("ink.png")));
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128) {
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

} // namespace
