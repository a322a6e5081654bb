// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QMap>
#include <QXmlStreamReader>
#include <cmath>

#include "device/OutputDevice.h"
#include "device/SvgClipStream.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

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

/// For each line of an SVG document, the data of the paths that cut it, and its points.
QStringList cutLines(const QByteArray& document) {
    QXmlStreamReader reader(document);
    QMap<QString, QString> clips;
    QStringList groups, lines;
    QString clip;
    while (!reader.atEnd()) {
        reader.readNext();
        const QXmlStreamAttributes attributes = reader.attributes();
        if (reader.isEndElement() && reader.name() == "g") {
            groups.removeLast();
        } else if (reader.isStartElement() && reader.name() == "g") {
            groups << clips.value(attributes.value("clip-path").toString());
        } else if (reader.isStartElement() && reader.name() == "clipPath") {
            clip = "url(#" + attributes.value("id").toString() + ")";
        } else if (reader.isStartElement() && reader.name() == "path") {
            clips[clip] = attributes.value("d").toString();
        } else if (reader.isStartElement() && reader.name() == "polyline") {
            lines << groups.join("") + " " + attributes.value("points").toString().trimmed();
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return lines;
}

TEST(SvgDevice, CutsWhatIsDrawnUnderAClip) {
    const TemporaryDirectory directory;
    const auto device =
        createOutputDevice(OutputFormat::svg, {QString::fromStdString(directory.path("plot.svg")), "", {25.4, 25.4}});
    QPainter& painter = device->painter();
    painter.drawLine(0, 0, 9, 0);
    painter.setClipRect(QRect(5, 6, 70, 80));
    device->clipChanged(true);
    painter.drawLine(0, 1, 9, 1);
    painter.setPen(Qt::red);
    painter.drawLine(0, 2, 9, 2);
    painter.setClipRect(QRect(1, 1, 1, 1));
    device->clipChanged(true);
    painter.drawLine(0, 3, 9, 3);
    painter.setClipping(false);
    device->clipChanged(false);
    painter.drawLine(0, 4, 9, 4);
    device->finish();
    const QString first = "M5,6L75,6L75,86L5,86L5,6", second = "M1,1L2,1L2,2L1,2L1,1";
    EXPECT_EQ(cutLines(QByteArray::fromStdString(directory.read("plot.svg"))),
              QStringList({" 0,0 9,0", first + " 0,1 9,1", first + " 0,2 9,2", second + " 0,3 9,3", " 0,4 9,4"}));
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

} // namespace
} // namespace kelplot
