// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
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
