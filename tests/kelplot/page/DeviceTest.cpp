// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <cmath>

#include "device/OutputDevice.h"
#include "device/SvgClipStream.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

constexpr SheetSize a4Landscape{297.0, 210.0};

/// Puts a sheet out with a filled square of ten millimetres whose upper left corner is at (50, 20) mm.
std::string plotSquare(OutputFormat format, const TemporaryDirectory& directory, const SheetSize& sheet, int dpi) {
    const std::string name = "plot." + suffixOf(format).toStdString();
    const OutputSetup setup{QString::fromStdString(directory.path(name)), "Fl\u00e4che", sheet, dpi};
    const auto device = createOutputDevice(format, setup);
    const double units = device->grid().unitsPerMillimetre;
    device->painter().fillRect(QRectF(50 * units, 20 * units, 10 * units, 10 * units), Qt::black);
    device->finish();
    return directory.read(name);
}

std::vector<double> numbersAfter(const std::string& bytes, const QString& pattern) {
    const QString text = QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size()));
    const QRegularExpressionMatch match = QRegularExpression(pattern).match(text);
    std::vector<double> numbers;
    for (int i = 1; i <= match.lastCapturedIndex(); ++i) {
        numbers.push_back(match.captured(i).toDouble());
    }
    return numbers;
}

TEST(PdfDevice, PageIsThePaper) {
    for (const SheetSize& sheet : {a4Landscape, SheetSize{841, 1189}, SheetSize{333.3, 77.7}}) {
        const TemporaryDirectory directory;
        const std::string pdf = plotSquare(OutputFormat::pdf, directory, sheet, 200);
        const auto page = numbersAfter(pdf, R"(/MediaBox \[0 0 ([\d.]+) ([\d.]+)\])");
        ASSERT_EQ(page.size(), 2U) << sheet.width;
        EXPECT_NEAR(page[0] / 72.0 * 25.4, sheet.width, 0.18) << sheet.width;
        EXPECT_NEAR(page[1] / 72.0 * 25.4, sheet.height, 0.18) << sheet.width;
    }
}

TEST(PdfDevice, TitleIsTheDrawing) {
    const TemporaryDirectory directory;
    const std::string pdf = plotSquare(OutputFormat::pdf, directory, a4Landscape, 200);
    const std::string utf16("/Title (\xfe\xff\0F\0l\0\xe4\0c\0h\0e)", 23);
    EXPECT_NE(pdf.find(utf16), std::string::npos);
}

TEST(SvgDevice, StatesTheSheetInMillimetres) {
    const TemporaryDirectory directory;
    const std::string svg = plotSquare(OutputFormat::svg, directory, {297.0, 215.9}, 200);
    const auto sizes =
        numbersAfter(svg, R"x(<svg width="([\d.]+)mm" height="([\d.]+)mm"\s+viewBox="0 0 ([\d.]+) ([\d.]+)")x");
    EXPECT_EQ(sizes, (std::vector<double>{297.0, 215.9, 29700.0, 21590.0}));
}

TEST(SvgClipStream, FindsItsPlaceHoweverTheDocumentArrives) {
    const QByteArray document = "<svg>\n<defs>\n</defs>\n<g fill=\"none\">\n<g >\n</g>\n</g>\n</svg>\n";
    const QByteArray clipped =
        "<svg>\n<defs>\n<clipPath id=\"visible\"><rect x=\"1\" y=\"2.5\" width=\"30\" height=\"40\"/>"
        "</clipPath>\n</defs>\n<g clip-path=\"url(#visible)\" fill=\"none\">\n<g >\n</g>\n</g>\n</svg>\n";
    for (const int chunk : {1, 7, 1000}) {
        QBuffer target;
        target.open(QIODevice::WriteOnly);
        SvgClipStream stream(target, QRectF(1.0, 2.5, 30.0, 40.0));
        for (int at = 0; at < document.size(); at += chunk) {
            const QByteArray part = document.mid(at, chunk);
            ASSERT_EQ(stream.write(part), part.size());
        }
        EXPECT_EQ(target.data(), clipped) << "in chunks of " << chunk;
    }
}

/// A file on a disk that is full after some bytes.
class FullDisk : public QIODevice {
public:
    explicit FullDisk(qint64 room) : m_room(room) { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 size) override {
        const qint64 written = std::min(size, m_room);
        m_room -= written;
        return written > 0 ? written : -1;
    }

private:
    qint64 m_room;
};

TEST(SvgClipStream, TellsOfAWriteThatFails) {
    const QByteArray head = "<svg><defs></defs><g >";
    const QByteArray rest = "</g></svg>";
    for (const qint64 room : {0, 60}) {
        FullDisk disk(room);
        EXPECT_NE(SvgClipStream(disk, QRectF(1, 2, 3, 4)).write(head + rest), (head + rest).size()) << room;
    }
    FullDisk disk(200); // takes the head, with its clip, and then no more
    SvgClipStream stream(disk, QRectF(1, 2, 3, 4));
    EXPECT_EQ(stream.write(head), head.size());
    EXPECT_NE(stream.write(rest.repeated(20)), 20 * rest.size());
}

TEST(PngDevice, GridIsFinerThanThePixels) {
    const TemporaryDirectory directory;
    const OutputSetup setup{QString::fromStdString(directory.path("plot.png")), "", {25.4, 25.4}, 100};
    const auto device = createOutputDevice(OutputFormat::png, setup);
    const int pixel = static_cast<int>(std::lround(device->grid().unitsPerMillimetre * 0.254));
    ASSERT_GE(pixel, 8);
    device->painter().fillRect(QRect(10 * pixel, 10 * pixel, pixel, pixel / 2), Qt::black);
    device->finish();
    const QImage image(QString::fromStdString(directory.path("plot.png")));
    EXPECT_EQ(image.size(), QSize(100, 100));
    EXPECT_EQ(image.dotsPerMeterX(), 3937);
    EXPECT_EQ(image.dotsPerMeterY(), 3937);
    EXPECT_NEAR(qGray(image.pixel(10, 10)), 127, 3) << "half a pixel is covered";
    EXPECT_EQ(qGray(image.pixel(11, 10)), 255);
    EXPECT_EQ(qGray(image.pixel(10, 11)), 255);
}

TEST(PngDevice, RefusesAnImageBeyondReason) {
    const TemporaryDirectory directory;
    for (const SheetSize& sheet : {SheetSize{841, 1189}, SheetSize{20000, 10}}) {
        const OutputSetup setup{QString::fromStdString(directory.path("plot.png")), "", sheet, 1200};
        EXPECT_THROW(createOutputDevice(OutputFormat::png, setup), OutputError) << sheet.width;
    }
    EXPECT_TRUE(QDir(QString::fromStdString(directory.path())).isEmpty());
}

class AnyDevice : public ::testing::TestWithParam<OutputFormat> {};

TEST_P(AnyDevice, ReplacesAFileOnlyWhenFinished) {
    const TemporaryDirectory directory;
    const QString path = QString::fromStdString(directory.write("plot", "old"));
    {
        const auto device = createOutputDevice(GetParam(), {path, "", a4Landscape, 50});
        device->painter().drawLine(0, 0, 100, 100);
    }
    EXPECT_EQ(directory.read("plot"), "old");
    createOutputDevice(GetParam(), {path, "", a4Landscape, 50})->finish();
    EXPECT_NE(directory.read("plot"), "old");
    EXPECT_EQ(QDir(QString::fromStdString(directory.path())).count(), 3U) << "itself, its parent, and the file";
}

TEST_P(AnyDevice, KeepsItsGridUnderAReplacedWorldTransform) {
    const TemporaryDirectory directory;
    const OutputSetup setup{QString::fromStdString(directory.path("plot")), "", a4Landscape, 100};
    const auto device = createOutputDevice(GetParam(), setup);
    const QTransform before = device->painter().combinedTransform();
    device->painter().setWorldTransform(QTransform());
    EXPECT_EQ(device->painter().combinedTransform(), before);
}

INSTANTIATE_TEST_SUITE_P(Formats, AnyDevice,
                         ::testing::Values(OutputFormat::pdf, OutputFormat::png, OutputFormat::svg));

} // namespace
} // namespace kelplot
