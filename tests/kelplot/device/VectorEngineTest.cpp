// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QPainterPath>
#include <functional>
#include <sstream>

#include "device/vector/VectorPaintDevice.h"

// What a painter draws, as a format hears of it: coordinates on the page, worked out by hand from the painter's state.

namespace kelplot {
namespace {

class Notes final : public VectorSink {
public:
    QPaintEngine::PaintEngineFeatures features() const override {
        return QPaintEngine::LinearGradientFill | QPaintEngine::PatternBrush | QPaintEngine::BlendModes;
    }
    void setClips(const std::vector<PageShape>& clips) override {
        text << "clip";
        for (const PageShape& clip : clips) {
            text << ' ' << of(clip);
        }
        text << '\n';
    }
    void fill(const PageShape& shape, const PageBrush& brush, const PageBlend& blend) override {
        QRectF rectangle; // is the same by either rule
        text << "fill" << (shape.rule == Qt::OddEvenFill && !shape.isRectangle(rectangle) ? "*" : "") << ' '
             << of(shape) << ' ' << brush.brush.color().name().toStdString();
        if (brush.brush.gradient() != nullptr) {
            const QPointF at = brush.place.map(QPointF(1, 0));
            text << " gradient " << at.x() << ' ' << at.y();
        }
        text << of(blend) << '\n';
    }
    void stroke(const PageShape& shape, const QPen& pen, const PageBlend& blend) override {
        text << "line " << of(shape) << " w" << pen.widthF() << (pen.style() == Qt::SolidLine ? "" : " dashed")
             << of(blend) << '\n';
    }
    void drawImage(const PagePicture& picture, const PageBlend& blend) override {
        const QPointF from = picture.place.map(QPointF(0, 0));
        const QPointF to = picture.place.map(QPointF(picture.image.width(), picture.image.height()));
        text << "image " << picture.image.width() << 'x' << picture.image.height() << ' ' << from.x() << ' ' << from.y()
             << " to " << to.x() << ' ' << to.y() << of(blend) << '\n';
    }

    std::ostringstream text;

private:
    static std::string of(const PageShape& shape) {
        std::ostringstream points;
        const char* separator = "";
        for (const PageShape::Element& element : shape.elements) {
            points << separator << (element.type == QPainterPath::CurveToElement ? "~" : "") << element.x << ','
                   << element.y;
            separator = " ";
        }
        return '(' + points.str() + ')';
    }
    static std::string of(const PageBlend& blend) {
        std::ostringstream words;
        words << (blend.opacity < 1.0 ? " faint" : "")
              << (blend.mode == QPainter::CompositionMode_Multiply ? " multiplied" : "");
        return words.str();
    }
};

std::string drawn(const std::function<void(QPainter&)>& draw) {
    Notes notes;
    VectorPaintDevice page(notes, QSize(1000, 1000), 2540);
    QPainter painter(&page);
    painter.setPen(Qt::NoPen);
    draw(painter);
    painter.end();
    return notes.text.str();
}

TEST(VectorEngine, BringsWhatAPainterDrawsToThePage) {
    const QPointF corner[] = {{0, 0}, {10, 0}, {10, 5}};
    const struct {
        const char* what;
        std::function<void(QPainter&)> draw;
        const char* heard;
    } rows[] = {
        {"a similar transform widens the pen",
         [&](QPainter& painter) {
             painter.setPen(QPen(Qt::black, 3));
             painter.setWorldTransform({0, 2, -2, 0, 100, 0});
             painter.drawPolyline(corner, 3);
         },
         "line (100,0 100,20 90,20) w6\n"},
        {"a cosmetic pen keeps its width, and dashes stay dashes",
         [&](QPainter& painter) {
             QPen pen(Qt::black, 3, Qt::DashLine);
             pen.setCosmetic(true);
             painter.setPen(pen);
             painter.scale(2, 5);
             painter.drawLine(QPointF(1, 1), QPointF(2, 1));
         },
         "line (2,5 4,5) w3 dashed\n"},
        {"a stretched pen becomes the area that it covers",
         [](QPainter& painter) {
             painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::FlatCap));
             painter.scale(1, 10);
             painter.drawLine(QPointF(0, 1), QPointF(5, 1));
         },
         "fill (0,0 5,0 5,20 0,20 0,0) #000000\n"},
        {"paths keep their curves and their rule",
         [](QPainter& painter) {
             painter.setBrush(Qt::red);
             QPainterPath path(QPointF(1, 1));
             path.cubicTo(2, 2, 3, 3, 4, 1);
             painter.translate(10, 0);
             painter.drawPath(path);
         },
         "fill* (11,1 ~12,2 13,3 14,1) #ff0000\n"},
        {"polygons are closed, filled and then bordered",
         [&](QPainter& painter) {
             painter.setPen(QPen(Qt::black, 1));
             painter.setBrush(Qt::red);
             painter.drawPolygon(corner, 3, Qt::WindingFill);
         },
         "fill (0,0 10,0 10,5 0,0) #ff0000\nline (0,0 10,0 10,5 0,0) w1\n"},
        {"points are as wide as the pen",
         [](QPainter& painter) {
             painter.setPen(QPen(Qt::blue, 4, Qt::SolidLine, Qt::SquareCap));
             painter.drawPoint(QPointF(10, 20));
         },
         "fill (8,18 12,18 12,22 8,22 8,18) #0000ff\n"},
        {"clips are told where something is drawn, once, and nested ones together",
         [](QPainter& painter) {
             painter.setClipRect(0, 0, 90, 90);
             painter.save();
             painter.setClipRect(QRectF(10, 10, 5, 5), Qt::IntersectClip);
             painter.fillRect(0, 0, 7, 7, Qt::black);
             painter.restore();
             painter.save();
             painter.restore();
             painter.fillRect(0, 0, 7, 7, Qt::black);
             painter.fillRect(0, 0, 7, 7, Qt::black);
             painter.setClipping(false);
             painter.fillRect(0, 0, 7, 7, Qt::black);
         },
         "clip (0,0 90,0 90,90 0,90 0,0) (10,10 15,10 15,15 10,15 10,10)\nfill (0,0 7,0 7,7 0,7 0,0) #000000\n"
         "clip (0,0 90,0 90,90 0,90 0,0)\nfill (0,0 7,0 7,7 0,7 0,0) #000000\nfill (0,0 7,0 7,7 0,7 0,0) #000000\n"
         "clip\nfill (0,0 7,0 7,7 0,7 0,0) #000000\n"},
        {"nothing shows within an empty clip, nor of what has no opacity or no number",
         [](QPainter& painter) {
             const QPointF lost[] = {{0, 0}, {qQNaN(), 3}};
             painter.setPen(QPen(Qt::black, 1));
             painter.drawPolyline(lost, 2);
             painter.setPen(Qt::NoPen);
             painter.save();
             painter.setOpacity(0.0);
             painter.fillRect(0, 0, 7, 7, Qt::black);
             painter.restore();
             painter.setClipPath(QPainterPath());
             painter.fillRect(0, 0, 7, 7, Qt::black);
         },
         "clip ()\n"},
        {"a part of an image is cut out and lies where the painter puts it",
         [](QPainter& painter) {
             painter.setOpacity(0.5);
             painter.setCompositionMode(QPainter::CompositionMode_Multiply);
             painter.translate(100, 0);
             painter.drawImage(QRectF(0, 0, 20, 10), QImage(8, 8, QImage::Format_RGB32), QRectF(2, 3, 4, 5));
         },
         "image 4x5 100 0 to 120 10 faint multiplied\n"},
        {"gradients go along with the transform and the brush's origin",
         [](QPainter& painter) {
             painter.scale(2, 2);
             painter.setBrushOrigin(5, 0);
             painter.fillRect(QRectF(0, 0, 1, 1), QLinearGradient(0, 0, 1, 0));
         },
         "fill (0,0 2,0 2,2 0,2 0,0) #000000 gradient 12 0\n"},
        {"what lies beyond every page is moved to its bounds",
         [](QPainter& painter) {
             painter.setPen(QPen(Qt::black, 1));
             painter.drawLine(QPointF(0, 0), QPointF(3e11, -3e11));
         },
         "line (0,0 1e+09,-1e+09) w1\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(drawn(row.draw), row.heard) << row.what;
    }
}

TEST(VectorEngine, TellsTheClipAgainOnTheNextPage) {
    Notes notes;
    VectorPaintDevice page(notes, QSize(100, 100), 2540);
    QPainter painter(&page);
    painter.setClipRect(0, 0, 9, 9);
    painter.fillRect(0, 0, 5, 5, Qt::black);
    notes.text.str({});
    page.beginPage(QSize(200, 100));
    painter.fillRect(0, 0, 5, 5, Qt::black);
    EXPECT_EQ(notes.text.str(), "clip\nclip (0,0 9,0 9,9 0,9 0,0)\nfill (0,0 5,0 5,5 0,5 0,0) #000000\n");
    EXPECT_EQ(page.width(), 200);
}

} // namespace
} // namespace kelplot
