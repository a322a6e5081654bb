// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>

#include "kelplot/cli/KelplotRun.h"

namespace {

const QString sheet = QStringLiteral(EXAMPLE_DRAWINGS "/showcase.dxf");

bool isDark(const QImage& page, int x, int y) {
    return qGray(page.pixel(x, y)) < 64;
}

/// Tells whether there is ink within a pixel: viewers place letters and lines differently by parts of one.
bool isNearInk(const QImage& page, int x, int y) {
    int darkest = 255;
    for (int i = 0; i < 9; ++i) {
        darkest = std::min(darkest, qGray(page.pixel(x - 1 + i % 3, y - 1 + i / 3)));
    }
    return darkest < 160;
}

/// The PDF and SVG files that a mode of texts makes of a drawing with many scripts.
class TextMode : public ::testing::Test {
protected:
    QString plot(const char* mode, const char* name) {
        const Outcome outcome = run(directory, {"--text", mode, "-o", name, sheet});
        EXPECT_EQ(outcome.status, 0) << outcome.messages.toStdString();
        return QString::fromStdString(directory.path(name));
    }
    static QString textIn(const QString& pdf) {
        QProcess process;
        process.start("pdftotext", {pdf, "-"});
        process.waitForFinished(60000);
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    static QImage pageOf(const QString& pdf) {
        QProcess process;
        process.start("pdftoppm", {"-r", "150", "-gray", "-singlefile", pdf, pdf});
        process.waitForFinished(60000);
        return QImage(pdf + ".pgm");
    }

    TemporaryDirectory directory;
};

TEST_F(TextMode, FontsCanBeSearchedAndLookLikeOutlines) {
    const QString fonts = plot("fonts", "fonts.pdf");
    const QString outlines = plot("outlines", "outlines.pdf");
    const QString found = textIn(fonts);
    for (const char* character : {"Dvořák", "Крышка", "Κάλυμμα", "轴承盖", "6 × Ø9"}) {
        EXPECT_TRUE(found.contains(QString::fromUtf8(character))) << character;
    }
    EXPECT_EQ(textIn(outlines).trimmed(), "");

    const QImage one = pageOf(fonts);
    const QImage other = pageOf(outlines);
    ASSERT_EQ(one.size(), other.size());
    int dark = 0;
    int different = 0;
    for (int y = 1; y + 1 < one.height(); ++y) {
        for (int x = 1; x + 1 < one.width(); ++x) {
            dark += isDark(one, x, y) ? 1 : 0;
            different += isDark(one, x, y) && !isNearInk(other, x, y) ? 1 : 0;
            different += isDark(other, x, y) && !isNearInk(one, x, y) ? 1 : 0;
        }
    }
    EXPECT_GT(dark, 10000);
    EXPECT_EQ(different, 0);
}

TEST_F(TextMode, AnSvgFileHoldsTextsOfFonts) {
    plot("fonts", "fonts.svg");
    EXPECT_NE(directory.read("fonts.svg").find("轴承盖"), std::string::npos);
    EXPECT_EQ(run(directory, {"--text", "letters", sheet}).status, 1);
}

} // namespace
