// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QPainterPath>
#include <QXmlStreamReader>
#include <functional>

#include "device/svg/SvgDevice.h"
#include "kelplot/device/Likeness.h"
#include "support/TemporaryDirectory.h"

// What becomes of what a painter draws, worked out by hand: 100 units a millimetre, y downwards.

namespace kelplot {
namespace {

/// What the document holds after its head, which is that of a sheet of 100 x 50 mm.
QString drawn(const std::function<void(SvgDevice&)>& draw) {
    const TemporaryDirectory directory;
    SvgDevice device({QString::fromStdString(directory.path("d.svg")), "<a & \"b\">\x01", {100, 50}});
    device.painter().setPen(Qt::NoPen);
    draw(device);
    device.finish();
    const QString text = QString::fromStdString(directory.read("d.svg"));
    QXmlStreamReader reader(text);
    while (!reader.atEnd()) {
        reader.readNext();
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    const char* const head = "*<svg * width=\"100mm\" height=\"50mm\" viewBox=\"0 0 10000 5000\" *>\n"
                             "<title>&lt;a &amp; &quot;b&quot;&gt;\uFFFD</title>\n<desc>*</desc>\n*</svg>\n";
    EXPECT_TRUE(isLike(text, head)) << text.toStdString();
    const int start = text.indexOf("</desc>\n") + 8;
    return text.mid(start, text.lastIndexOf("</svg>") - start);
}

/// A path of three points.
QPainterPath triangle() {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addPolygon(QPolygonF({{0, 0}, {900, 0}, {0, 900}, {0, 0}}));
    return path;
}

struct Row {
    const char* what;
    std::function<void(SvgDevice&)> draw;
    const char* text;
};

void expectRows(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        const QString text = drawn(row.draw);
        EXPECT_TRUE(isLike(text, row.text)) << row.what << ":\n" << text.toStdString();
    }
}

TEST(SvgDevice, WritesLines) {
    expectRows({
        {"tenths of a unit, by steps from the rounded place before, within the bounds of pages",
         [](SvgDevice& device) {
             device.painter().setPen(QPen(Qt::black, 25, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
             device.painter().drawPolyline(
                 QPolygonF({{0.04, 0.06}, {10.26, -3}, {10.26, -3.5}, {20.26, -3.5}, {20.3, -3.54}, {-1e12, 5}}));
         },
         "<g stroke=\"#000000\" stroke-width=\"25\">\n"
         "<path d=\"M0 .1l10.3-3.1v-.5h10 0l-1000000020.3 8.5\"/>\n</g>\n"},
        {"curves, closed where the pen has no round ends, and what comes after them",
         [](SvgDevice& device) {
             QPainterPath path(QPointF(100, 100));
             path.cubicTo(200, 100, 200, 200, 100, 200);
             path.cubicTo(50, 200, 50, 150, 100, 100);
             path.moveTo(5, 5);
             path.lineTo(5, 9);
             device.painter().strokePath(path, QPen(Qt::red, 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
         },
         "<g stroke=\"#ff0000\" stroke-width=\"1\" vector-effect=\"non-scaling-stroke\" stroke-linecap=\"square\" "
         "stroke-linejoin=\"bevel\">\n"
         "<path d=\"M100 100c100 0 100 100 0 100-50 0-50-50 0-100zM5 5v4\"/>\n</g>\n"},
        {"a pen of which everything is stated: widths of 10 and a limit of 2 to each side, half of a half opaque",
         [](SvgDevice& device) {
             QPen pen(QColor(255, 128, 0, 128), 10, Qt::CustomDashLine, Qt::FlatCap, Qt::MiterJoin);
             pen.setDashPattern({2, 1.5});
             pen.setDashOffset(0.5);
             device.painter().setOpacity(0.5);
             device.painter().setPen(pen);
             device.painter().drawLine(0, 0, 9, 9);
             device.painter().setOpacity(1);
             device.painter().drawLine(0, 0, 9, 9);
         },
         "<g stroke=\"#ff8000\" stroke-width=\"10\" stroke-opacity=\"0.251\" stroke-linecap=\"butt\" "
         "stroke-linejoin=\"miter\" stroke-miterlimit=\"4\" stroke-dasharray=\"20 15\" stroke-dashoffset=\"5\">\n*"
         "</g>\n<g * stroke-opacity=\"0.502\" *</g>\n"},
    });
}

TEST(SvgDevice, WritesAreasWithClipsLayersAndPaints) {
    expectRows({
        {"clips within clips, which are told once",
         [](SvgDevice& device) {
             QPainter& painter = device.painter();
             painter.setClipRect(100, 200, 1000, 500);
             painter.fillRect(0, 0, 9, 9, Qt::blue);
             painter.save();
             painter.setClipPath(triangle(), Qt::IntersectClip);
             painter.fillRect(0, 0, 9, 9, Qt::blue);
             painter.restore();
             painter.fillRect(0, 0, 9, 9, Qt::blue);
         },
         "<clipPath id=\"c1\"><rect x=\"100\" y=\"200\" width=\"1000\" height=\"500\"/></clipPath>\n"
         "<g clip-path=\"url(#c1)\">\n<g fill=\"#0000ff\">\n<path * d=\"M0 0h9v9h-9z\"/>\n</g>\n</g>\n"
         "<clipPath id=\"c2\"><rect x=\"100\" *</clipPath>\n"
         "<clipPath id=\"c3\" clip-path=\"url(#c2)\"><path d=\"M0 0h900l-900 900z\"/></clipPath>\n"
         "<g clip-path=\"url(#c3)\">\n<g *</g>\n</g>\n<g clip-path=\"url(#c1)\">\n<g *</g>\n</g>\n"},
        {"a layer with marks in its name, and what is mixed with the page, outside of groups",
         [](SvgDevice& device) {
             device.painter().setClipPath(triangle());
             device.layerChanged("<A&\"B\">");
             device.painter().fillPath(triangle(), QColor(1, 2, 3, 51));
             device.painter().setCompositionMode(QPainter::CompositionMode_Multiply);
             device.painter().fillPath(triangle(), QColor(1, 2, 3));
         },
         "<clipPath *</clipPath>\n<g clip-path=\"url(#c1)\">\n<g data-layer=\"&lt;A&amp;&quot;B&quot;&gt;\">\n"
         "<g fill=\"#010203\" fill-opacity=\"0.2\">\n<path d=\"M0 0h900l-900 900z\"/>\n</g>\n</g>\n</g>\n"
         "<path fill=\"#010203\" data-layer=\"&lt;A&amp;&quot;B&quot;&gt;\" clip-path=\"url(#c1)\" "
         "style=\"mix-blend-mode:multiply\" d=\"M0 0h900l-900 900z\"/>\n"},
        {"a gradient with a place of its own that fades out",
         [](SvgDevice& device) {
             QLinearGradient gradient(10, 20, 30, 40.5);
             gradient.setColorAt(0.25, Qt::red);
             gradient.setColorAt(1, QColor(0, 0, 255, 0));
             gradient.setSpread(QGradient::ReflectSpread);
             device.painter().translate(7, 0);
             device.painter().scale(2, 3);
             device.painter().fillPath(triangle(), gradient);
         },
         "<linearGradient id=\"p1\" gradientUnits=\"userSpaceOnUse\" x1=\"10\" y1=\"20\" x2=\"30\" y2=\"40.5\" "
         "spreadMethod=\"reflect\" gradientTransform=\"matrix(2 0 0 3 7 0)\">"
         "<stop offset=\"0.25\" stop-color=\"#ff0000\"/><stop offset=\"1\" stop-color=\"#0000ff\" stop-opacity=\"0\"/>"
         "</linearGradient>\n<g fill=\"url(#p1)\">\n<path d=\"M7 0h1800l-1800 2700z\"/>\n</g>\n"},
        {"a pattern, whose image is told once",
         [](SvgDevice& device) {
             device.painter().setBrushOrigin(3, 4);
             device.painter().fillPath(triangle(), QBrush(Qt::red, Qt::Dense4Pattern));
             device.painter().setOpacity(0.5);
             device.painter().fillPath(triangle(), QBrush(Qt::red, Qt::Dense4Pattern));
         },
         "<defs><image id=\"i*\" width=\"8\" height=\"8\" *;base64,*\"/></defs>\n"
         "<pattern id=\"p1\" patternUnits=\"userSpaceOnUse\" width=\"8\" height=\"8\" "
         "patternTransform=\"matrix(1 0 0 1 3 4)\"><use xlink:href=\"#i*\"/></pattern>\n"
         "<g fill=\"url(#p1)\">\n<path *</g>\n<pattern id=\"p2\" *</pattern>\n"
         "<g fill=\"url(#p2)\" fill-opacity=\"0.5\">\n<path *</g>\n"},
    });
}

TEST(SvgDevice, WritesTextsAndPictures) {
    QFont font("DejaVu Sans", -1, QFont::Bold, true);
    font.setPixelSize(100);
    QImage image(2, 3, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    expectRows({
        {"a text of marks, stretched to twice its width",
         [&](SvgDevice& device) {
             device.painter().setPen(QColor(0, 255, 0, 51));
             device.painter().setFont(font);
             device.painter().translate(500, 600);
             device.painter().scale(2, 1);
             device.painter().drawText(QPointF(10, 0), " <b> & \"c\"");
         },
         "<g fill=\"#00ff00\" fill-opacity=\"0.2\" font-size=\"100\" font-weight=\"bold\" font-style=\"italic\">\n"
         "<text font-family=\"DejaVu Sans\" xml:space=\"preserve\" transform=\"matrix(2 0 0 1 520 600)\">"
         " &lt;b&gt; &amp; &quot;c&quot;</text>\n</g>\n"},
        {"a text down the page in letters of half the size",
         [&](SvgDevice& device) {
             device.painter().setPen(Qt::black);
             device.painter().setFont(font);
             device.painter().translate(500, 600);
             device.painter().rotate(90);
             device.painter().scale(0.5, 0.5);
             device.painter().drawText(QPointF(10, 0), "x");
         },
         "<g fill=\"#000000\" font-size=\"50\" *>\n<text * transform=\"matrix(0 1 -1 0 500 605)\">x</text>\n</g>\n"},
        {"a picture that comes again fainter, each in a group of its own",
         [&](SvgDevice& device) {
             device.painter().drawImage(QRectF(100, 200, 50, 30), image);
             device.painter().setOpacity(0.25);
             device.painter().setRenderHint(QPainter::SmoothPixmapTransform);
             device.painter().drawImage(QRectF(100, 300, 20, 1.5), image);
             device.painter().drawImage(QRectF(0, 0, 20, 30), image);
         },
         "<defs><image id=\"i*\" width=\"2\" height=\"3\" *\"/></defs>\n"
         "<g image-rendering=\"optimizeSpeed\">\n"
         "<use xlink:href=\"#i*\" transform=\"matrix(25 0 0 10 100 200)\"/>\n</g>\n"
         "<g opacity=\"0.25\">\n<use xlink:href=\"#i*\" transform=\"matrix(10 0 0 0.5 100 300)\"/>\n</g>\n"
         "<g opacity=\"0.25\">\n<use xlink:href=\"#i*\" transform=\"matrix(10 0 0 10 0 0)\"/>\n</g>\n"},
    });
}

} // namespace
} // namespace kelplot
