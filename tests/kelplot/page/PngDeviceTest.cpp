// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <QLinearGradient>
#include <cmath>
#include <functional>

#include "device/OutputDevice.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

using Draw = std::function<void(QPainter& painter)>;

constexpr int unit = 16; // painter units in a pixel

/// The image that a device makes of what is drawn in each of its parts.
QImage plotted(OutputSetup setup, const Draw& draw) {
    const TemporaryDirectory directory;
    setup.path = QString::fromStdString(directory.path("plot.png"));
    const auto device = createOutputDevice(OutputFormat::png, setup);
    for (int part = 0; part < device->partCount(); ++part) {
        device->beginPart(part);
        draw(device->painter());
    }
    device->finish();
    return QImage(setup.path);
}

/// What a painter draws on an image that is held whole.
QImage painted(QSize size, const Draw& draw) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(1.0 / unit, 1.0 / unit);
    draw(painter);
    return image;
}

int largestDifference(const QImage& a, const QImage& b) {
    int largest = a.size() == b.size() ? 0 : 256;
    for (int y = 0; y < a.height() && largest < 256; ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            largest = std::max(
                {largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return largest;
}

/// A page with something of everything across all of it.
void drawScene(QPainter& painter, QSize pixels) {
    const double width = pixels.width() * unit, height = pixels.height() * unit;
    QLinearGradient gradient(0.0, 0.0, width, height);
    gradient.setColorAt(0.0, Qt::yellow);
    gradient.setColorAt(1.0, Qt::blue);
    painter.fillRect(QRectF(width * 0.1, height * 0.1, width * 0.6, height * 0.5), gradient);
    QImage squares(8, 8, QImage::Format_RGB32);
    squares.fill(Qt::green);
    squares.setPixelColor(3, 3, Qt::black);
    QBrush texture(squares);
    texture.setTransform(QTransform::fromScale(40.0, 40.0));
    painter.fillRect(QRectF(width * 0.2, height * 0.3, width * 0.7, height * 0.6), texture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(width * 0.4, height * 0.4, width * 0.2, height * 0.2), squares);
    painter.save();
    painter.setClipRect(QRectF(width * 0.05, height * 0.05, width * 0.8, height * 0.9));
    painter.rotate(5.0);
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    painter.fillRect(QRectF(width * 0.3, 0.0, width * 0.3, height), QColor(255, 200, 200));
    painter.restore();
    painter.setPen(QPen(Qt::black, 2.0 * unit));
    painter.drawLine(QPointF(0.0, height), QPointF(width, 0.0));
    painter.setPen(QPen(Qt::red, 5.0 * unit, Qt::CustomDashLine));
    painter.drawEllipse(QRectF(width * 0.1, height * 0.1, width * 0.8, height * 0.8));
}

TEST(PngDevice, DrawsAPageInPartsAsOneWithoutThem) {
    for (const QSize pixels : {QSize(800, 600), QSize(3000, 3200), QSize(17000, 560)}) {
        SCOPED_TRACE(std::to_string(pixels.width()) + " pixels wide");
        const auto draw = [&](QPainter& painter) {
            drawScene(painter, pixels);
        };
        const QImage page = plotted({"", "", {pixels.width() / 10.0, pixels.height() / 10.0}, 254}, draw);
        constexpr int roundingOfEdges = 16; // a seam shows with 255 in the texture and the lines
        EXPECT_LE(largestDifference(page, painted(pixels, draw)), roundingOfEdges);
    }
}

// A line of a pixel's width covers a pixel of each row; the middle of what is dark there lies on the line.
TEST(PngDevice, HairlinesRunStraightAcrossTheEdgesOfParts) {
    const QSize pixels(2800, 3400);
    const double from = 100.3, to = 1100.8;
    const QImage page = plotted({"", "", {280.0, 340.0}, 254}, [&](QPainter& painter) {
        painter.setPen(QPen(Qt::black, unit));
        painter.drawLine(QPointF(from, 0.0) * unit, QPointF(to, pixels.height()) * unit);
    });
    for (int y = 2; y < pixels.height() - 2; ++y) {
        const double expected = from + (to - from) * (y + 0.5) / pixels.height();
        double dark = 0.0, moment = 0.0;
        for (int x = static_cast<int>(expected) - 4; x < expected + 4; ++x) {
            const double here = 255 - qGray(page.pixel(x, y));
            dark += here;
            moment += here * (x + 0.5);
        }
        ASSERT_NEAR(moment / dark, expected, 0.15) << "row " << y;
    }
}

// Lines are cut where they are long: apart from the rounding of edges to parts of a pixel, which reaches farther on
// curves because the painter takes them for fewer straight pieces, nothing shows that. A piece that overlapped its
// neighbour would darken a see-through line there by 64, and a gap would leave it white.
TEST(PngDevice, CutsLongLinesWithoutASeam) {
    const QSize pixels(1500, 300);
    const QPen pens[] = {QPen(Qt::black, 3.0 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin),
                         QPen(QColor(0, 0, 0, 128), 9.0 * unit, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin),
                         QPen(QColor(200, 0, 0, 60), 20.0 * unit, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin)};
    for (const QPen& pen : pens) {
        const auto draw = [&](QPainter& painter) {
            painter.setPen(pen);
            painter.drawLine(QPointF(-1000.0, 300.0), QPointF(90000.0, 900.0));
            const QPointF corners[] = {{800.0, 4000.0}, {20000.0, 1200.0}, {3000.0, 4400.0}, {3000.0, 2000.0}};
            painter.drawPolyline(corners, 4);
            painter.setBrush(QColor(0, 0, 255, 40));
            painter.drawEllipse(QRectF(11000.0, 800.0, 12000.0, 3500.0));
        };
        const int difference = largestDifference(plotted({"", "", {150.0, 30.0}, 254}, draw), painted(pixels, draw));
        EXPECT_LE(difference, 20) << "with a pen of " << pen.widthF();
    }
}

TEST(PngDevice, WidthGivesTheResolution) {
    OutputSetup setup{"", "Plan Ф", {127.0, 254.0}};
    setup.pixelWidth = 1000;
    const QImage image = plotted(setup, [](QPainter&) {});
    EXPECT_EQ(image.size(), QSize(1000, 2000));
    EXPECT_EQ(image.dotsPerMeterX(), 7874) << "200 to an inch";
    EXPECT_EQ(image.text("Title"), "Plan Ф");
}

/// How many pixels of a rectangle are black; none may be anything but black or white.
int blackIn(const QImage& image, const QRect& box) {
    int count = 0;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x) {
            const int grey = qGray(image.pixel(x, y));
            EXPECT_TRUE(grey == 0 || grey == 255) << x << ", " << y;
            count += grey == 0 ? 1 : 0;
        }
    }
    return count;
}

// A yellow line is 40 of 255 darker than white, which is 10 of the 64 pixels of a cell; eight of them are in rows of
// their own, so it leaves at least one dot in eight pixels.
TEST(PngDevice, TellsColoursInGreyAndInBlackAndWhite) {
    const auto draw = [](QPainter& painter) {
        painter.fillRect(0, 0, 64 * unit, 32 * unit, QColor(128, 128, 128));
        painter.fillRect(0, 32 * unit, 64 * unit, 8 * unit, Qt::yellow);
        painter.fillRect(70 * unit, 0, unit, 100 * unit, Qt::yellow);
        painter.setPen(QPen(Qt::black, 3.0 * unit));
        painter.drawLine(2 * unit, 60 * unit, 90 * unit, 80 * unit);
    };
    OutputSetup setup{"", "", {10.0, 10.0}, 254};
    setup.pixels = PixelKind::grey;
    const QImage grey = plotted(setup, draw);
    EXPECT_EQ(grey.format(), QImage::Format_Grayscale8);
    EXPECT_EQ(qGray(grey.pixel(5, 5)), 128);
    EXPECT_EQ(qGray(grey.pixel(5, 35)), qGray(QColor(Qt::yellow).rgb()));
    setup.pixels = PixelKind::bilevel;
    const QImage bilevel = plotted(setup, draw);
    EXPECT_EQ(bilevel.depth(), 1);
    EXPECT_EQ(blackIn(bilevel, {0, 0, 64, 32}), 64 * 32 / 2);
    for (int row = 32; row < 40; ++row) {
        EXPECT_GE(blackIn(bilevel, {0, row, 64, 1}), 8) << "row " << row;
    }
    EXPECT_GE(blackIn(bilevel, {70, 0, 1, 56}), 7) << "the upright line";
    EXPECT_EQ(blackIn(bilevel, {46, 69, 1, 3}), 3) << "the sloping line";
    EXPECT_EQ(blackIn(bilevel, {0, 90, 60, 10}), 0) << "white ground";
}

} // namespace
} // namespace kelplot
