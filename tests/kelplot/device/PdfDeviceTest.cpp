// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainterPath>
#include <QPdfWriter>
#include <QRegularExpression>
#include <cmath>
#include <functional>

#include "device/pdf/PdfDevice.h"
#include "kelplot/cli/KelplotRun.h"
#include "kelplot/device/Likeness.h"
#include "page/DeviceGrid.h"

// What a painter draws, through the device and by Qt's own means, as the same program shows both.

namespace kelplot {
namespace {

using Paint = std::function<void(QPainter&)>;

constexpr SheetSize sheet{76.2, 50.8}; // 216 x 144 points
constexpr int dotsPerInch = 150;

QImage pageOf(const TemporaryDirectory& directory, const QString& name) {
    EXPECT_EQ(run(directory, {"--check", name}, "qpdf").status, 0);
    EXPECT_EQ(run(directory, {"-r", QString::number(dotsPerInch), "-singlefile", name, "page"}, "pdftoppm").status, 0);
    return QImage(QString::fromStdString(directory.path("page.ppm"))).convertToFormat(QImage::Format_RGB32);
}

/// Draws through the device.
QImage drawn(const TemporaryDirectory& directory, const std::function<void(PdfDevice&)>& draw) {
    PdfDevice device({QString::fromStdString(directory.path("own.pdf")), "", sheet});
    draw(device);
    device.finish();
    return pageOf(directory, "own.pdf");
}

QImage drawnByQtToPdf(const TemporaryDirectory& directory, const Paint& paint) {
    QPdfWriter writer(QString::fromStdString(directory.path("qt.pdf")));
    writer.setPageLayout({QPageSize(QSizeF(216, 144), QPageSize::Point), QPageLayout::Portrait, QMarginsF()});
    writer.setResolution(fineDotsPerInch);
    QPainter painter(&writer);
    paint(painter);
    painter.end();
    return pageOf(directory, "qt.pdf");
}

QImage drawnByQtToImage(const TemporaryDirectory&, const Paint& paint) {
    QImage image(450, 300, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setWindow(0, 0, 7620, 5080);
    paint(painter);
    return image;
}

QPainterPath star() {
    QPainterPath path;
    for (int i = 0; i < 5; ++i) {
        const QPointF point(3000 + 2000 * std::sin(i * 4 * M_PI / 5), 2500 - 2000 * std::cos(i * 4 * M_PI / 5));
        i == 0 ? path.moveTo(point) : path.lineTo(point);
    }
    path.closeSubpath();
    path.addEllipse(5000, 500, 2000, 1500);
    return path;
}

QImage picture(QImage::Format format) {
    QImage image(8, 6, QImage::Format_ARGB32);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 8; ++x) {
            image.setPixel(x, y, qRgba(x * 36, y * 50, 128, (x + y) % 4 == 0 ? 0 : 255));
        }
    }
    return image.convertToFormat(format);
}

void drawPictures(QPainter& painter) {
    int column = 0;
    for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_Grayscale8,
                              QImage::Format_Indexed8, QImage::Format_Mono}) {
        painter.drawImage(QRectF(300 + 1400 * column, 300, 1200, 1800), picture(format));
        painter.save();
        painter.translate(1200 + 1400 * column++, 3200);
        painter.rotate(90);
        painter.scale(1, -1);
        painter.drawImage(QRectF(-600, -600, 1200, 1200), picture(format), QRectF(2, 1, 4, 4));
        painter.restore();
    }
}

void drawPens(QPainter& painter) {
    int row = 0;
    for (const Qt::PenCapStyle cap : {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap}) {
        for (const Qt::PenJoinStyle join : {Qt::MiterJoin, Qt::BevelJoin, Qt::RoundJoin}) {
            painter.setPen(
                QPen(QColor(40 * row, 0, 200), 150, row % 2 == 0 ? Qt::SolidLine : Qt::DashDotLine, cap, join));
            const QPointF points[] = {{300 + 750.0 * row, 4700}, {600 + 750.0 * row, 300}, {900 + 750.0 * row, 4700}};
            painter.drawPolyline(points, 3);
            ++row;
        }
    }
}

void drawClips(QPainter& painter) {
    painter.setClipPath(star());
    painter.fillRect(0, 0, 8000, 2500, Qt::red);
    painter.save();
    painter.setClipRect(1000, 1000, 5000, 2000, Qt::IntersectClip);
    painter.fillRect(0, 0, 8000, 5000, Qt::blue);
    painter.restore();
    painter.fillRect(0, 4000, 8000, 500, Qt::green);
    painter.setClipping(false);
    painter.drawRect(100, 100, 7000, 4800);
}

void drawOpacities(QPainter& painter) {
    for (int i = 0; i < 6; ++i) {
        painter.setOpacity(1.0 - i * 0.15);
        painter.setPen(QPen(QColor(255, 0, 0, 128), 300));
        painter.setBrush(QColor(0, 40 * i, 255, 200));
        painter.drawEllipse(300 + 900 * i, 500, 2000, 3500);
    }
}

void drawBlends(QPainter& painter) {
    int column = 0;
    painter.fillRect(0, 0, 7620, 5080, Qt::white); // else what is blended with is the colour of the paper, or nothing
    for (const auto mode : {QPainter::CompositionMode_Multiply, QPainter::CompositionMode_Screen,
                            QPainter::CompositionMode_Darken, QPainter::CompositionMode_Difference}) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.fillRect(300 + 1800 * column, 500, 1500, 2500, QColor(230, 180, 40));
        painter.setCompositionMode(mode);
        painter.fillRect(600 + 1800 * column++, 1500, 1500, 2500, QColor(60, 200, 120));
    }
}

void drawGradients(QPainter& painter) {
    int column = 0;
    for (const auto spread : {QGradient::PadSpread, QGradient::RepeatSpread, QGradient::ReflectSpread}) {
        QLinearGradient linear(1000, 500, 1700, 900);
        QRadialGradient radial(1200, 3700, 500, 1100, 3600);
        for (QGradient* const gradient : {static_cast<QGradient*>(&linear), static_cast<QGradient*>(&radial)}) {
            gradient->setColorAt(0.1, Qt::yellow);
            gradient->setColorAt(0.6, Qt::blue);
            gradient->setColorAt(1.0, Qt::red);
            gradient->setSpread(spread);
            painter.setPen(Qt::NoPen);
            painter.setBrush(*gradient);
            painter.drawRect(300, gradient == &linear ? 200 : 2700, 1900, 2200);
        }
        painter.translate(2400, 60 * ++column);
    }
}

/// Gradients that fade out and repeat, pictures with holes and dashes, all faint and within clips within clips.
void drawFades(QPainter& painter) {
    QPainterPath circle;
    circle.addEllipse(QPointF(2500, 2500), 2300, 2300);
    painter.setClipPath(circle);
    painter.setOpacity(0.7);
    QLinearGradient linear(0, 0, 900, 500);
    QRadialGradient radial(5500, 2500, 700, 5700, 2600);
    for (QGradient* const gradient : {static_cast<QGradient*>(&linear), static_cast<QGradient*>(&radial)}) {
        gradient->setColorAt(0, QColor(255, 0, 0, 255));
        gradient->setColorAt(0.5, QColor(0, 255, 0, 40));
        gradient->setColorAt(1, QColor(0, 0, 255, 200));
        gradient->setSpread(QGradient::ReflectSpread);
    }
    painter.fillRect(300, 300, 4000, 4000, linear);
    painter.save();
    painter.setClipRect(1000, 1500, 2500, 2500, Qt::IntersectClip);
    painter.rotate(20);
    painter.drawImage(QRectF(1500, 500, 2400, 1800), picture(QImage::Format_ARGB32));
    painter.restore();
    painter.setClipRect(4000, 200, 3400, 4600);
    painter.fillRect(4500, 500, 2500, 4500, radial);
    QPen pen(QColor(0, 0, 0, 150), 80, Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({6, 2, 1, 2});
    pen.setDashOffset(7);
    painter.setPen(pen);
    painter.drawLine(3000, 400, 7600, 4700);
    painter.setPen(QPen(Qt::darkRed, 80, Qt::DotLine, Qt::RoundCap)); // as it leaves the dashes before
    painter.drawEllipse(4500, 1000, 2000, 3000);
}

/// As few colours as fit into bits of each number, and one more.
void drawFewColours(QPainter& painter) {
    int column = 0;
    for (const int colours : {2, 3, 4, 5, 16, 17}) {
        QImage image(6, 3, QImage::Format_RGB32);
        for (int i = 0; i < 18; ++i) {
            image.setPixel(i % 6, i / 6, qRgb(i % colours * 15, 255 - i % colours * 11, i % colours % 3 * 120));
        }
        painter.drawImage(QRectF(300 + 1200 * column++, 500, 1000, 3000), image);
    }
}

void drawBrushes(QPainter& painter) {
    painter.scale(101.6, 101.6); // a pattern's pixel becomes six of the page: readers round tiles to whole ones
    int column = 0;
    for (const Qt::BrushStyle style : {Qt::Dense3Pattern, Qt::HorPattern, Qt::VerPattern, Qt::CrossPattern}) {
        painter.fillRect(QRectF(3 + 18 * column++, 3, 16, 20), QBrush(Qt::darkGreen, style));
    }
    QBrush texture(picture(QImage::Format_ARGB32));
    texture.setTransform(QTransform::fromScale(2, 2));
    painter.fillRect(QRectF(3, 28, 40, 20), texture);
    painter.setPen(QPen(QBrush(Qt::red, Qt::Dense4Pattern), 6));
    painter.drawLine(50, 38, 70, 38);
}

struct Row {
    const char* name;
    QImage (*other)(const TemporaryDirectory&, const Paint&);
    void (*paint)(QPainter&);
    int reach = 1; ///< pixels by which a reader may be off
};

TEST(PdfDevice, ShowsWhatQtShows) {
    const Row rows[] = {
        {"shapes", drawnByQtToPdf,
         [](QPainter& painter) {
             painter.drawPath(star());
             painter.fillPath(star(), Qt::cyan);
         }},
        {"pens", drawnByQtToPdf, drawPens},
        {"clips", drawnByQtToPdf, drawClips},
        {"opacities", drawnByQtToPdf, drawOpacities},
        {"pictures", drawnByQtToImage, drawPictures},
        {"pictures of few colours", drawnByQtToImage, drawFewColours},
        {"blends", drawnByQtToImage, drawBlends},
        {"gradients", drawnByQtToImage, drawGradients},
        {"fades", drawnByQtToImage, drawFades},
        {"brushes", drawnByQtToImage, drawBrushes, 3},
    };
    for (const Row& row : rows) {
        const TemporaryDirectory directory;
        const QImage own = drawn(directory, [&](PdfDevice& device) { row.paint(device.painter()); });
        expectAlike(own, row.other(directory, row.paint), row.name, 8, row.reach);
    }
}

struct TextRow {
    const char* family;
    bool isItalic;
    QString text;
    QTransform place;
    QString readBack = text;
};

void showOutlines(QPainter& painter, const QFont& font, const TextRow& row) {
    QPainterPath outlines;
    outlines.addText(0.0, 0.0, font, row.text);
    painter.setTransform(row.place);
    painter.fillPath(outlines, Qt::darkBlue);
}

TEST(PdfDevice, LeavesNoStateToTheNextPage) {
    const TemporaryDirectory directory;
    QPolygonF longLine; // more than is handed on at once, as the last thing on its page
    for (int i = 0; i < 150'000; ++i) {
        longLine << QPointF(i % 499 * 7919 % 500, i % 503 * 7561 % 500);
    }
    drawn(directory, [&](PdfDevice& device) {
        device.painter().setClipRect(100, 100, 500, 500);
        device.layerChanged("a");
        device.painter().drawPolyline(longLine);
        device.nextPage(sheet, "next");
        device.painter().drawRect(0, 0, 900, 900);
    });
    for (const char* const page : {"1", "2"}) {
        const Outcome outcome = run(directory, {"-f", page, "-l", page, "-r", "20", "own.pdf", "p"}, "pdftoppm");
        EXPECT_EQ(outcome.messages.toStdString(), "") << "page " << page;
    }
}

TEST(PdfDevice, TextsLieWhereTheirOutlinesLieAndCanBeReadBack) {
    const QTransform level = QTransform::fromTranslate(300, 2500).scale(0.6, 0.6);
    const TextRow rows[] = {
        {"DejaVu Sans", false, "AVATo ffi ffl", level},
        {"DejaVu Sans", false, "Größe Ø25 ±0,1", QTransform::fromTranslate(300, 2500).scale(0.4, 0.8)},
        {"DejaVu Sans", false, QString::fromUtf8("x\u0304\u0323y\u0302"), level},
        {"DejaVu Sans", false, "Жук Ωμέγα 轴承盖", level},
        {"DejaVu Sans", false, "שלום עולם", level},
        {"DejaVu Sans", false, "مرحبا", level},
        {"DejaVu Sans", false, QString::fromUtf8("A\uF8F0B"), level, "A B"}, // in no font: shown as a box
        {"osifont", true, "leaning", level},
        {"Liberation Serif", false, "on a slope", QTransform::fromTranslate(900, 4500).rotate(-30).scale(0.7, 0.7)},
        {"DejaVu Sans", false, QString::fromUtf8("\u2126\u03A9 \u00B5\u03BC \u00C5\u212B"), level}, // of one glyph each
        {"DejaVu Sans", false, QString::fromUtf8("x\u0304 轴 up"),
         QTransform::fromTranslate(3900, 4700).rotate(-60).scale(0.9, 0.4)},
        {"osifont", true, "stretched", QTransform::fromTranslate(900, 900).rotate(25).scale(1.1, 0.5)},
        {"Liberation Serif", true, "mirrored", QTransform::fromTranslate(5900, 2500).scale(-0.7, 0.7)},
    };
    for (const TextRow& row : rows) {
        const TemporaryDirectory directory;
        QFont font(row.family, -1, QFont::Normal, row.isItalic);
        font.setPixelSize(1024);
        font.setStyleStrategy(QFont::PreferAntialias);
        const QImage texts = drawn(directory, [&](PdfDevice& device) {
            EXPECT_TRUE(device.drawText({row.text, font, row.place, Qt::darkBlue}));
        });
        const QString read = run(directory, {"own.pdf", "-"}, "pdftotext").output;
        EXPECT_EQ(read.trimmed().remove(QChar(0x202A)).remove(QChar(0x202B)).remove(QChar(0x202C)).toStdString(),
                  row.readBack.toStdString());
        expectAlike(texts, drawn(directory, [&](PdfDevice& device) { showOutlines(device.painter(), font, row); }),
                    row.text.toUtf8().constData(), 12);
    }
}

TEST(PdfDevice, NamesThePagesOfABook) {
    const TemporaryDirectory directory;
    const QString names[] = {"A (1)", QString::fromUtf8("Größe \\ 轴"), ""};
    PdfDevice device({QString::fromStdString(directory.path("own.pdf")), "B(", sheet, 0, 0, {}, names[0]});
    for (int page = 0; page < 3; ++page) {
        page > 0 ? device.nextPage({50.8 + 25.4 * page, 25.4}, names[page]) : void();
        device.layerChanged(page < 2 ? "(both" : "");
        device.painter().drawLine(0, 0, 900, 900);
    }
    device.finish();
    const auto json = QJsonDocument::fromJson(run(directory, {"--json", "own.pdf"}, "qpdf").output.toUtf8()).object();
    const QJsonArray pages = json["pages"].toArray(), outlines = json["outlines"].toArray();
    ASSERT_EQ(pages.size(), 3);
    ASSERT_EQ(outlines.size(), 3);
    for (int page = 0; page < 3; ++page) {
        EXPECT_EQ(outlines[page].toObject()["title"].toString(), names[page]);
        EXPECT_EQ(outlines[page].toObject()["destpageposfrom1"].toInt(), page + 1);
        EXPECT_EQ(pages[page].toObject()["label"].toObject()["/P"].toString(), "u:" + names[page]);
    }
    const QString facts = run(directory, {"-l", "3", "own.pdf"}, "pdfinfo").output;
    EXPECT_TRUE(isLike(facts, "Title: *B(\n*1 size:*216 x 144 *2 size:*216 x 72 *3 size:*288 x 72 *"))
        << facts.toStdString();
    const QString content = run(directory, {"--qdf", "--object-streams=disable", "own.pdf", "-"}, "qpdf").output;
    EXPECT_EQ(content.count("/Type /OCG"), 1);
    EXPECT_EQ(content.count(QRegularExpression("/OC ?/L\\d+ BDC")), 2) << "the last page has no layer";
}

/// A symbol with much in it that must not leak from one copy to the next: a colour, a clip, a layer, a text.
void drawSymbol(PdfDevice& device, int index) {
    QPainter& painter = device.painter();
    QFont font("DejaVu Sans", -1);
    font.setPixelSize(300);
    painter.setPen(QPen(Qt::red, 30));
    painter.drawEllipse(0, 0, 300, 300);
    painter.setPen(QPen(Qt::blue, 60, Qt::DashLine));
    painter.drawLine(0, 0, 300, 300);
    device.drawText({"Nr.", font, QTransform(), Qt::darkGreen});
    device.layerChanged(index % 2 == 0 ? "even" : "odd");
    painter.fillRect(350, 0, 200, 300, QColor(0, 0, 0, 100));
    painter.setClipRect(0, 0, 300, 150);
    painter.fillRect(100, 0, 400, 300, Qt::cyan);
    painter.setClipping(false);
    painter.drawLine(0, 300, 500, 300);
}

TEST(PdfDevice, CopiesThatRepeatAreWrittenOnceAndLookTheSame) {
    constexpr int copies = 48;
    QByteArray files[2];
    QImage pages[2];
    for (const bool isTold : {false, true}) {
        const TemporaryDirectory directory;
        pages[isTold] = drawn(directory, [&](PdfDevice& device) {
            for (int i = 0; i < copies; ++i) {
                const int row = i / 8;
                device.painter().setTransform(QTransform::fromTranslate(100 + i % 8 * 907, 400 + row * 771));
                isTold ? device.copyBegins() : void();
                drawSymbol(device, i);
                isTold ? device.copyEnds() : void();
            }
        });
        QFile file(QString::fromStdString(directory.path("own.pdf")));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        files[isTold] = file.readAll();
        EXPECT_EQ(run(directory, {"own.pdf", "-"}, "pdftotext").output.count("Nr."), copies);
    }
    EXPECT_TRUE(pages[0] == pages[1]);
    EXPECT_EQ(files[0].count("/Subtype/Form"), 0);
    EXPECT_GE(files[1].count("/Subtype/Form"), 1);
}

} // namespace
} // namespace kelplot
