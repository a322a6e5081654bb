// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <sstream>

#include "cli/CommandLine.h"
#include "cli/PlotJob.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

// The sheet is larger than the frame, so that all of the frame's lines show.
constexpr double sheetWidth = 420.0;
constexpr double sheetHeight = 297.0;
constexpr double frameWidth = 297.0;
constexpr double frameHeight = 210.0;
constexpr double lineWidth = 0.25;
constexpr double tolerance = 0.1; ///< millimetres

const std::string frameDrawing = "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n4\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n"
                                 "0\nLWPOLYLINE\n8\n0\n90\n4\n70\n1\n10\n1000\n20\n500\n10\n1297\n20\n500\n"
                                 "10\n1297\n20\n710\n10\n1000\n20\n710\n0\nENDSEC\n0\nEOF\n";

QString plotAtTrueSize(const QString& drawing, const TemporaryDirectory& directory) {
    QString pdf = QString::fromStdString(directory.path("plot.pdf"));
    const PlotPlan plan = planFor(
        requestFromArguments({"kelplot", "--paper", "420x297", "--scale", "1:1", "--center", "-o", pdf, drawing}));
    std::ostringstream messages;
    Console console(messages, Console::Progress::never, true);
    plotDrawing(drawing, pdf, plan, console);
    return pdf;
}

/// The box of the dark pixels of a PDF page, but for lines all across it, in millimetres from its upper left corner.
QRectF inkOnPage(const QString& pdf, const TemporaryDirectory& directory) {
    constexpr int dotsPerInch = 508;
    constexpr double pixel = 25.4 / dotsPerInch;
    QProcess process;
    process.start("pdftoppm", {"-r", QString::number(dotsPerInch), "-gray", "-singlefile", pdf,
                               QString::fromStdString(directory.path("page"))});
    EXPECT_TRUE(process.waitForFinished(60000) && process.exitCode() == 0);
    const QImage page(QString::fromStdString(directory.path("page.pgm")));
    Box2 ink;
    for (int y = 0; y < page.height(); ++y) {
        const uchar* const line = page.constScanLine(y);
        if (line[0] < 128) { // a construction line crosses the sheet
            continue;
        }
        for (int x = 0; x < page.width(); ++x) {
            if (line[x] < 128) {
                ink.add(Vec2{x * pixel, y * pixel});
                ink.add(Vec2{(x + 1) * pixel, (y + 1) * pixel});
            }
        }
    }
    return {ink.min.x, ink.min.y, ink.width(), ink.height()};
}

void checkFrame(const QString& drawing, const TemporaryDirectory& directory) {
    const QRectF ink = inkOnPage(plotAtTrueSize(drawing, directory), directory);
    EXPECT_NEAR(ink.width(), frameWidth + lineWidth, tolerance);
    EXPECT_NEAR(ink.height(), frameHeight + lineWidth, tolerance);
    EXPECT_NEAR(ink.center().x(), sheetWidth / 2, tolerance);
    EXPECT_NEAR(ink.center().y(), sheetHeight / 2, tolerance);
}

class TrueSize : public ::testing::Test {
protected:
    TemporaryDirectory directory;
};

TEST_F(TrueSize, AFrameMeasuresOnPaperWhatTheDrawingSays) {
    checkFrame(QString::fromStdString(directory.write("frame.dxf", frameDrawing)), directory);
}

TEST_F(TrueSize, TheFrameOfASheetMeasuresWhatTheDrawingSays) {
    const QString sheet = QStringLiteral(KELDRIVER_SHARED_DATA "/dxf/fidelity_sheet.dxf");
    if (!QFileInfo::exists(sheet)) {
        GTEST_SKIP() << "no sample drawing " << sheet.toStdString();
    }
    checkFrame(sheet, directory);
}

} // namespace
} // namespace kelplot
