// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <QSet>
#include <cmath>

#include "kelplot/cli/KelplotRun.h"

namespace {

/// The bounding box of the pixels of an image that are darker than `limit`.
QRect inkIn(const TemporaryDirectory& directory, const char* image, int limit) {
    const QImage page(QString::fromStdString(directory.path(image)));
    QRect ink;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (qGray(page.pixel(x, y)) < limit) {
                ink = ink.united(QRect(x, y, 1, 1));
            }
        }
    }
    return ink;
}

std::string drawingOf(const std::string& entities) {
    return "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
}

// A frame of 297 by 210 on a larger sheet, so that all of its lines show.
TEST(Pictures, AFrameMeasuresOnPaperWhatTheDrawingSays) {
    const TemporaryDirectory directory;
    directory.write("frame.dxf", drawingOf("0\nLWPOLYLINE\n90\n4\n70\n1\n10\n1000\n20\n500\n10\n1297\n20\n500\n"
                                           "10\n1297\n20\n710\n10\n1000\n20\n710\n"));
    EXPECT_EQ(run(directory, {"--paper", "420x297", "--scale", "1:1", "--center", "frame.dxf"}).status, 0);
    EXPECT_EQ(run(directory, {"-r", "508", "-gray", "-singlefile", "frame.pdf", "page"}, "pdftoppm").status, 0);
    const QRectF ink = inkIn(directory, "page.pgm", 128);
    constexpr double pixel = 25.4 / 508, lineWidth = 0.25, tolerance = 0.1; // millimetres
    EXPECT_NEAR(ink.width() * pixel, 297 + lineWidth, tolerance);
    EXPECT_NEAR(ink.height() * pixel, 210 + lineWidth, tolerance);
    EXPECT_NEAR(ink.center().x() * pixel, 420 / 2.0, tolerance);
    EXPECT_NEAR(ink.center().y() * pixel, 297 / 2.0, tolerance);
}

/// Thick lines, a wide one, a circle, a curve of many points and an area, all of which run from within the square from
/// (0, 0) to (50, 50) far beyond it.
std::string shapesAcross() {
    std::string text = "0\nLINE\n370\n200\n10\n-500\n20\n10\n11\n500\n21\n30\n"
                       "0\nCIRCLE\n370\n200\n10\n50\n20\n25\n40\n20\n"
                       "0\nLWPOLYLINE\n90\n2\n43\n6\n10\n25\n20\n-300\n10\n25\n20\n300\n"
                       "0\nSOLID\n10\n40\n20\n40\n11\n400\n21\n40\n12\n40\n22\n400\n13\n400\n23\n400\n"
                       "0\nLWPOLYLINE\n370\n200\n90\n400\n";
    for (int i = 0; i < 400; ++i) {
        text += "10\n" + std::to_string(i * 0.5 - 75.0) + "\n20\n" + std::to_string(25.0 + 60.0 * std::sin(i)) + "\n";
    }
    return drawingOf(text);
}

TEST(Pictures, ShowNothingOutsideTheirPart) {
    const std::pair<QStringList, QRect> rows[] = {
        // pixels, a tenth of a millimetre each
        {{"100x200", "--window", "0,0,50,50"}, {50, 550, 900, 900}},
        {{"100x60", "--margins", "10,20,30,10", "--scale", "2:1", "--window", "0,0,50,50"}, {100, 200, 600, 300}},
        {{"100x100", "--margins", "10", "--scale", "1:1", "--center"}, {100, 100, 800, 800}}};
    for (const auto& [part, shown] : rows) {
        const TemporaryDirectory directory;
        directory.write("d.dxf", shapesAcross());
        run(directory, QStringList{"--format", "png", "--dpi", "254", "d.dxf", "--paper"} + part);
        const QRect ink = inkIn(directory, "d.png", 255);
        EXPECT_TRUE(shown.adjusted(-1, -1, 1, 1).contains(ink)) << part.join(' ').toStdString();
        EXPECT_TRUE(ink.contains(shown.adjusted(2, 2, -2, -2))) << "the shapes reach all edges";
    }
}

TEST(Pictures, AreOfTheSizeAndColoursThatAreAskedFor) {
    const TemporaryDirectory directory;
    directory.write("red.dxf",
                    drawingOf("0\nSOLID\n62\n1\n10\n0\n20\n0\n11\n90\n21\n0\n12\n0\n22\n40\n13\n90\n23\n40\n"));
    const struct {
        QStringList options;
        QSize size;
        QImage::Format format;
        QSet<QRgb> colours;
    } rows[] = {
        {{"--dpi", "254"}, {1000, 500}, QImage::Format_RGB32, {0xFFFFFFFF, 0xFFFF0000}},
        {{"--width", "300"}, {300, 150}, QImage::Format_RGB32, {0xFFFFFFFF, 0xFFFF0000}},
        {{"--width", "1"}, {1, 1}, QImage::Format_RGB32, {}},
        {{"--grey", "--width", "100"},
         {100, 50},
         QImage::Format_Grayscale8,
         {0xFFFFFFFF, 0xFF575757}}, // red counts 11 of 32
        {{"--bilevel", "--dpi", "127"}, {500, 250}, QImage::Format_Mono, {0xFFFFFFFF, 0xFF000000}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.options.join(' ').toStdString());
        EXPECT_EQ(
            run(directory, QStringList{"-o", "r.png", "--paper", "100x50", "--scale", "1:1", "red.dxf"} + row.options)
                .status,
            0);
        const QImage image(QString::fromStdString(directory.path("r.png")));
        EXPECT_EQ(image.size(), row.size);
        EXPECT_EQ(image.format(), row.format);
        QSet<QRgb> colours;
        for (int i = 0; i < image.width() * image.height(); ++i) {
            colours << image.pixel(i % image.width(), i / image.width());
        }
        EXPECT_TRUE(colours.contains(row.colours));
    }
}

} // namespace
