// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <QStandardPaths>

#include "kelplot/cli/KelplotRun.h"

namespace {

bool isInk(const QImage& image, int x, int y) {
    constexpr int paper = 250;
    return image.valid(x, y) && qGray(image.pixel(x, y)) < paper;
}

/// The part of a picture from its first to its last ink, because the interpreter moves the page about.
QImage inked(const QString& path) {
    const QImage image = QImage(path).convertToFormat(QImage::Format_RGB32);
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isInk(image, x, y)) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return image.copy(box);
}

/// How many of the first picture's inked pixels have no ink near them in the second.
int strayInk(const QImage& image, const QImage& other) {
    constexpr int reach = 2;
    int stray = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            bool isFound = !isInk(image, x, y);
            for (int i = 0; i < (2 * reach + 1) * (2 * reach + 1) && !isFound; ++i) {
                isFound = isInk(other, x + i % (2 * reach + 1) - reach, y + i / (2 * reach + 1) - reach);
            }
            stray += isFound ? 0 : 1;
        }
    }
    return stray;
}

TEST(Hpgl, AnotherInterpreterDrawsThePageOfThePdf) {
    if (QStandardPaths::findExecutable("hp2xx").isEmpty()) {
        GTEST_SKIP() << "hp2xx is not installed";
    }
    const TemporaryDirectory directory;
    for (const char* const name : {"flange_plate", "room_plan", "line_styles"}) {
        SCOPED_TRACE(name);
        const QString drawing = QString(EXAMPLE_DRAWINGS "/%1.dxf").arg(name);
        ASSERT_EQ(run(directory, {"-o", "x.plt", "--text", "outlines", drawing}).status, 0);
        ASSERT_EQ(run(directory, {"-o", "x.pdf", "--text", "outlines", drawing}).status, 0);
        run(directory, {"-q", "-m", "png", "-d", "100", "-t", "-f", "plt.png", "x.plt"}, "hp2xx");
        run(directory, {"-r", "100", "-png", "-singlefile", "x.pdf", "pdf"}, "pdftoppm");
        const QImage plotted = inked(QString::fromStdString(directory.path("plt.png")));
        const QImage printed = inked(QString::fromStdString(directory.path("pdf.png")));
        ASSERT_FALSE(plotted.isNull() || printed.isNull());
        EXPECT_NEAR(plotted.width(), printed.width(), 2);
        EXPECT_NEAR(plotted.height(), printed.height(), 2);
        EXPECT_LE(strayInk(plotted, printed), 20);
        EXPECT_LE(strayInk(printed, plotted), 20);
    }
}

} // namespace
