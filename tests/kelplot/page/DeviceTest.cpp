// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <QLinearGradient>
#include <QPainterPath>
#include <QXmlStreamReader>
#include <cmath>
#include <functional>

#include "device/OutputDevice.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

/// What is drawn with a device, as an SVG document without its head.
QByteArray documentOfDevice(const std::function<void(OutputDevice&)>& draw, const QString& title = {}) {
    const TemporaryDirectory directory;
    const auto device = createOutputDevice(OutputFormat::svg,
                                           {QString::fromStdString(directory.path("plot.svg")), title, {25.4, 25.4}});
    draw(*device);
    device->finish();
    const QByteArray document = QByteArray::fromStdString(directory.read("plot.svg"));
    QXmlStreamReader reader(document);
    while (!reader.atEnd()) {
        reader.readNext();
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    EXPECT_TRUE(document.contains("width=\"25.4mm\" height=\"25.4mm\" viewBox=\"0 0 2540 2540\""));
    const QByteArray endOfHead = "</desc>\n", end = "</svg>\n";
    return document.mid(document.indexOf(endOfHead) + endOfHead.size()).chopped(end.size());
}

QByteArray documentOf(const std::function<void(QPainter&)>& draw, const QString& title = {}) {
    return documentOfDevice([&](OutputDevice& device) { draw(device.painter()); }, title);
}

TEST(SvgDevice, WritesStateWhereItChanges) {
    const QByteArray document = documentOf([](QPainter& painter) {
        painter.setPen(QPen(Qt::red, 25, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
        painter.drawLine(0, 0, 9, 0);
        const QPointF corners[] = {{10.0, 10.04}, {20.0, 5.0}, {20.0, -3.5}, {10.0, 10.04}};
        painter.drawPolyline(corners, 4);
        painter.setPen(QPen(QColor(0, 0, 255, 51), 3.5, Qt::CustomDashLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawLine(QPointF(-0.26, 0.0), QPointF(0.0, 0.5));
        painter.setOpacity(0.5);
        QPainterPath curve(QPointF(1.0, 1.0));
        curve.cubicTo(2.0, 1.0, 3.0, 2.0, 3.0, 3.0);
        curve.lineTo(4.0, 4.0);
        painter.fillPath(curve, Qt::green);
    });
    EXPECT_EQ(document.toStdString(), "<g stroke=\"#ff0000\" stroke-width=\"25\" stroke-linecap=\"butt\">\n"
                                      "<path d=\"M0 0h9\"/>\n<path d=\"M10 10l10-5v-8.5z\"/>\n</g>\n"
                                      "<g stroke=\"#0000ff\" stroke-width=\"3.5\" stroke-opacity=\"0.2\">\n"
                                      "<path d=\"M-.3 0l.3 .5\"/>\n</g>\n"
                                      "<g fill=\"#00ff00\" fill-opacity=\"0.5\">\n"
                                      "<path fill-rule=\"evenodd\" d=\"M1 1c1 0 2 1 2 2l1 1\"/>\n</g>\n");
}

TEST(SvgDevice, NestsClipsAndKeepsThem) {
    const QByteArray document = documentOf([](QPainter& painter) {
        painter.setPen(QPen(Qt::black, 1));
        painter.setClipRect(QRect(-5, -5, 3000, 3000)); // all of the page
        painter.drawLine(0, 0, 9, 0);
        painter.setClipRect(QRect(5, 6, 70, 80));
        painter.drawLine(0, 1, 9, 1);
        QPainterPath triangle(QPointF(0.0, 0.0));
        triangle.lineTo(50.0, 0.0);
        triangle.lineTo(0.0, 50.0);
        triangle.closeSubpath();
        painter.setClipPath(triangle, Qt::IntersectClip);
        painter.setCompositionMode(QPainter::CompositionMode_Multiply);
        painter.drawLine(0, 2, 9, 2);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setClipRect(QRect(5, 6, 70, 80));
        painter.drawLine(0, 3, 9, 3);
        painter.setClipping(false);
        painter.drawLine(0, 4, 9, 4);
    });
    const std::string pen = " stroke=\"#000000\" stroke-width=\"1\" stroke-linecap=\"square\""
                            " stroke-linejoin=\"bevel\"";
    const std::string box = "<rect x=\"5\" y=\"6\" width=\"70\" height=\"80\"/></clipPath>\n";
    EXPECT_EQ(document.toStdString(),
              "<g" + pen + ">\n<path d=\"M0 0h9\"/>\n</g>\n<clipPath id=\"c1\">" + box +
                  "<g clip-path=\"url(#c1)\">\n<g" + pen + ">\n<path d=\"M0 1h9\"/>\n</g>\n</g>\n<clipPath id=\"c2\">" +
                  box +
                  "<clipPath id=\"c3\" clip-path=\"url(#c2)\"><path clip-rule=\"evenodd\" d=\"M0 0h50l-50 50z\"/>"
                  "</clipPath>\n<path" +
                  pen + " clip-path=\"url(#c3)\" style=\"mix-blend-mode:multiply\" d=\"M0 2h9\"/>\n" +
                  "<g clip-path=\"url(#c1)\">\n<g" + pen + ">\n<path d=\"M0 3h9\"/>\n</g>\n</g>\n<g" + pen +
                  ">\n<path d=\"M0 4h9\"/>\n</g>\n");
}

TEST(SvgDevice, GroupsByLayersWithinClips) {
    const QByteArray document = documentOfDevice([](OutputDevice& device) {
        QPainter& painter = device.painter();
        painter.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawLine(0, 0, 9, 0);
        device.layerChanged("a<\"b\">");
        painter.setClipRect(QRect(5, 6, 70, 80));
        painter.drawLine(0, 1, 9, 1);
        device.layerChanged("never drawn on");
        device.layerChanged("c");
        painter.drawLine(0, 2, 9, 2);
        painter.setCompositionMode(QPainter::CompositionMode_Multiply);
        painter.drawLine(0, 3, 9, 3);
        device.layerChanged("");
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.drawLine(0, 4, 9, 4);
    });
    const std::string pen = " stroke=\"#000000\" stroke-width=\"1\"", clip = " clip-path=\"url(#c1)\"";
    const auto line = [&](const char* y) {
        return "<g" + pen + ">\n<path d=\"M0 " + y + "h9\"/>\n</g>\n";
    };
    EXPECT_EQ(document.toStdString(),
              line("0") +
                  "<clipPath id=\"c1\"><rect x=\"5\" y=\"6\" width=\"70\" height=\"80\"/></clipPath>\n"
                  "<g clip-path=\"url(#c1)\">\n<g data-layer=\"a&lt;&quot;b&quot;&gt;\">\n" +
                  line("1") + "</g>\n<g data-layer=\"c\">\n" + line("2") + "</g>\n</g>\n<path" + pen +
                  " data-layer=\"c\"" + clip + " style=\"mix-blend-mode:multiply\" d=\"M0 3h9\"/>\n<g" + clip + ">\n" +
                  line("4") + "</g>\n");
}

TEST(SvgDevice, WritesAnImageOnceAndGradientsAndPatternsInPlace) {
    const QByteArray document = documentOf([](QPainter& painter) {
        QImage image(2, 1, QImage::Format_RGB32);
        image.fill(Qt::red);
        painter.drawImage(QRectF(10.0, 20.0, 40.0, 30.0), image);
        painter.drawImage(QRectF(0.0, 0.0, 2.0, 1.0), image.copy());
        QLinearGradient gradient(0.0, 0.0, 10.0, 0.0);
        gradient.setColorAt(0.0, Qt::black);
        gradient.setColorAt(1.0, QColor(255, 255, 255, 51));
        painter.fillRect(QRectF(0.0, 0.0, 10.0, 10.0), gradient);
        QBrush texture(image);
        texture.setTransform(QTransform::fromScale(3.0, 3.0));
        painter.fillRect(QRectF(0.0, 0.0, 10.0, 10.0), texture);
    });
    EXPECT_EQ(document.count("data:image/png;base64,"), 1);
    for (const char* const part :
         {"transform=\"matrix(20 0 0 30 10 20)\"/>", "transform=\"matrix(1 0 0 1 0 0)\"/>",
          "<stop offset=\"1\" stop-color=\"#ffffff\" stop-opacity=\"0.2\"/>", "x1=\"0\" y1=\"0\" x2=\"10\" y2=\"0\"",
          "<g fill=\"url(#p1)\">", "patternTransform=\"matrix(3 0 0 3 0 0)\"", "<g fill=\"url(#p2)\">"}) {
        EXPECT_TRUE(document.contains(part)) << part << " in\n" << document.toStdString();
    }
}

TEST(SvgDevice, StaysValidForAnyText) {
    const QString text = QString("a<&\">") + QChar(7) + QChar(0xD800) + QChar(0xFFFE) + "é";
    const QByteArray document = documentOf(
        [&](QPainter& painter) {
            QFont font("Liberation Sans");
            font.setPixelSize(100);
            painter.setFont(font);
            painter.translate(30.0, 40.0);
            painter.scale(2.0, 0.5);
            painter.drawText(QPointF(1.0, 2.0), "a<&b");
        },
        text);
    EXPECT_TRUE(document.contains("font-size=\"50\"")) << document.toStdString();
    EXPECT_TRUE(document.contains("transform=\"matrix(4 0 0 1 32 41)\">a&lt;&amp;b</text>")) << document.toStdString();
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
