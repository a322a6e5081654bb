// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QImage>
#include <QPainterPath>
#include <functional>
#include <map>
#include <random>

#include "device/hpgl/HpglDevice.h"
#include "kelplot/device/Likeness.h"
#include "support/TemporaryDirectory.h"

// What a painter draws, as a plotter draws it: the commands are followed here step by step.

namespace kelplot {
namespace {

using Paint = std::function<void(QPainter&)>;

constexpr SheetSize sheet{100, 50}; // 4000 x 2000 plotter units

/// The commands for what is drawn.
QByteArray commandsFor(const std::function<void(HpglDevice&)>& draw, const QString& title = {}) {
    const TemporaryDirectory directory;
    HpglDevice device({QString::fromStdString(directory.path("p.plt")), title, sheet});
    device.painter().setPen(Qt::NoPen);
    draw(device);
    device.finish();
    return QByteArray::fromStdString(directory.read("p.plt"));
}

/// Pairs of numbers in base 32: the lowest digit first, the last one marked, the sign in the lowest bit.
std::vector<QPoint> decoded(const QByteArray& text) {
    std::vector<int> numbers;
    quint64 number = 0, place = 1;
    for (const char c : text) {
        const bool isLast = c >= 95;
        number += static_cast<quint64>(c - (isLast ? 95 : 63)) * place;
        place *= 32;
        if (isLast) {
            EXPECT_LT(number, quint64{1} << 32);
            numbers.push_back(static_cast<int>(number / 2) * (number % 2 == 0 ? 1 : -1));
            number = 0;
            place = 1;
        }
    }
    EXPECT_TRUE(place == 1 && numbers.size() % 2 == 0) << "half a point: " << text.constData();
    std::vector<QPoint> points;
    for (size_t i = 1; i < numbers.size(); i += 2) {
        points.emplace_back(numbers[i - 1], numbers[i]);
    }
    return points;
}

/// Follows the commands that the device writes, and fails at any other.
class Plotter {
public:
    explicit Plotter(QImage& page) : m_painter(&page) {
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.setWindow(0, 0, 4000, 2000);
    }

    void run(const QByteArray& commands) {
        QByteArray rest = commands;
        rest.replace('\n', "");
        while (!rest.isEmpty()) {
            const int length = rest.indexOf(';');
            ASSERT_GE(length, 2) << rest.left(40).constData();
            obey(rest.left(2), rest.mid(2, length - 2));
            rest.remove(0, length + 1);
        }
    }

private:
    void obey(const QByteArray& name, const QByteArray& text) {
        const QList<QByteArray> numbers = text.split(',');
        const auto at = [&](int i) {
            return numbers.value(i).toInt();
        };
        if (name == "PC") {
            m_colours[at(0)] = QColor(at(1), at(2), at(3));
        } else if (name == "SP") {
            m_colour = m_colours[at(0)];
        } else if (name == "PW") {
            m_width = text.toDouble() * 40;
        } else if (name == "LA") {
            m_cap = at(1) == 1 ? Qt::FlatCap : at(1) == 2 ? Qt::SquareCap : Qt::RoundCap;
            m_join = at(3) == 1 ? Qt::MiterJoin : at(3) == 5 ? Qt::BevelJoin : Qt::RoundJoin;
        } else if (name == "IW") {
            m_painter.setClipping(!text.isEmpty());
            if (!text.isEmpty()) {
                m_painter.setClipRect(QRectF(QPointF(at(0), 2000 - at(3)), QPointF(at(2), 2000 - at(1))));
            }
        } else if (name == "PU") {
            m_at = {at(0), at(1)};
            m_polygon.moveTo(onPage());
        } else if (name == "PM") {
            m_polygon = at(0) == 0 ? QPainterPath(onPage()) : m_polygon;
            m_isPolygon = at(0) != 2;
        } else if (name == "FP") {
            m_polygon.setFillRule(at(0) == 0 ? Qt::OddEvenFill : Qt::WindingFill);
            m_painter.fillPath(m_polygon, m_colour);
        } else if (name == "PE") {
            draw(text);
        } else {
            EXPECT_TRUE(QByteArrayList({"IN", "CO", "PS", "TR", "NP", "WU", "PG"}).contains(name)) << name.constData();
        }
    }

    void draw(const QByteArray& text) {
        ASSERT_TRUE(text.startsWith('7'));
        const bool isPlaced = text.startsWith("7<=");
        QPainterPath line;
        for (const QPoint& step : decoded(text.mid(isPlaced ? 3 : 1))) {
            const bool isStart = isPlaced && line.elementCount() == 0;
            m_at = isStart ? step : m_at + step;
            isStart ? line.moveTo(onPage()) : (m_isPolygon ? m_polygon : line).lineTo(onPage());
        }
        if (!m_isPolygon) {
            m_painter.strokePath(line, QPen(m_colour, m_width, Qt::SolidLine, m_cap, m_join));
        }
    }

    QPointF onPage() const { return {static_cast<double>(m_at.x()), 2000.0 - m_at.y()}; }

    QPainter m_painter;
    std::map<int, QColor> m_colours;
    QColor m_colour;
    double m_width = 0.0;
    Qt::PenCapStyle m_cap = Qt::FlatCap;
    Qt::PenJoinStyle m_join = Qt::MiterJoin;
    QPoint m_at;
    QPainterPath m_polygon;
    bool m_isPolygon = false;
};

QPainterPath rectangles(std::initializer_list<QRectF> list) {
    QPainterPath path;
    for (const QRectF& rectangle : list) {
        path.addRect(rectangle);
    }
    return path;
}

QPainterPath diamond() {
    QPainterPath path;
    path.addPolygon(QPolygonF({{2000, 100}, {3800, 1000}, {2000, 1900}, {200, 1000}, {2000, 100}}));
    return path;
}

void drawRing(QPainter& painter, const QPointF& centre) {
    QPainterPath ring;
    ring.addEllipse(centre, 400, 400);
    ring.addEllipse(centre, 250, 250);
    ring.addEllipse(centre, 100, 100);
    painter.fillPath(ring, Qt::darkCyan);
}

void drawZigzag(QPainter& painter, const QPen& pen, double top) {
    painter.setPen(pen);
    painter.drawPolyline(QPolygonF({{100, top + 600}, {1000, top}, {2000, top + 600}, {3000, top}, {3900, top + 600}}));
}

TEST(HpglDevice, PlotsWhatQtPaints) {
    const std::pair<const char*, Paint> rows[] = {
        {"rings that lie apart, in one another and over one another",
         [](QPainter& painter) {
             drawRing(painter, {500, 500});
             drawRing(painter, {1500, 1000});
             QPainterPath both = rectangles({{2000, 100, 900, 900}, {2400, 500, 900, 900}, {3500, 100, 300, 300}});
             painter.fillPath(both, Qt::red);
             both.translate(0, 550);
             both.setFillRule(Qt::WindingFill);
             painter.fillPath(both, Qt::blue);
         }},
        {"pens",
         [](QPainter& painter) {
             drawZigzag(painter, QPen(Qt::red, 90, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin), 200);
             drawZigzag(painter, QPen(Qt::blue, 60, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin), 600);
             drawZigzag(painter, QPen(Qt::black, 90, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin), 1000);
             painter.drawPoint(3700, 200);
         }},
        {"dashes go on round corners and begin within the pattern",
         [](QPainter& painter) {
             QPen pen(Qt::black, 40, Qt::CustomDashLine, Qt::FlatCap);
             pen.setDashPattern({6, 3, 1.5, 3});
             drawZigzag(painter, pen, 100);
             pen.setDashOffset(7.5); // in a gap
             drawZigzag(painter, pen, 600);
             pen.setDashOffset(13.5); // a whole period
             drawZigzag(painter, pen, 1100);
         }},
        {"a slanted border and a window",
         [](QPainter& painter) {
             painter.setClipPath(diamond());
             painter.setClipRect(500, 0, 1800, 2000, Qt::IntersectClip);
             drawZigzag(painter, QPen(Qt::red, 10), 700);
             painter.drawEllipse(QPointF(2000, 1000), 1700, 850);
             drawRing(painter, {600, 700});
             drawRing(painter, {2300, 400});
         }},
        {"a border with a hole, within another",
         [](QPainter& painter) {
             QPainterPath border = diamond();
             border.addEllipse(QPointF(2000, 1000), 500, 500);
             painter.setClipPath(border);
             QPainterPath circle;
             circle.addEllipse(QPointF(1800, 1000), 1200, 1200);
             painter.setClipPath(circle, Qt::IntersectClip);
             painter.fillRect(1200, 0, 1500, 2000, Qt::green);
             QPen pen(Qt::black, 10, Qt::CustomDashLine, Qt::FlatCap);
             pen.setDashPattern({20, 10});
             painter.setPen(pen);
             for (int y = 100; y < 2000; y += 150) {
                 painter.drawLine(0, y, 4000, y + 333);
             }
         }},
        {"an area and a border that overlap themselves",
         [](QPainter& painter) {
             QPainterPath border = diamond();
             border.addPath(diamond().translated(400, 0));
             QPainterPath area = rectangles({{1000, 300, 1200, 900}, {1600, 700, 1200, 900}});
             border.setFillRule(Qt::WindingFill);
             area.setFillRule(Qt::WindingFill);
             painter.setClipPath(border);
             painter.fillPath(area, Qt::blue);
             painter.setPen(QPen(Qt::red, 10));
             painter.drawLine(0, 1300, 4000, 1200);
         }},
    };
    for (const auto& [name, paint] : rows) {
        QImage plotted(800, 400, QImage::Format_RGB32);
        plotted.fill(Qt::white);
        QImage painted = plotted;
        const auto& draw = paint; // a name of its own, which a lambda can refer to
        Plotter(plotted).run(commandsFor([&](HpglDevice& device) { draw(device.painter()); }));
        QPainter painter(&painted);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setWindow(0, 0, 4000, 2000);
        painter.setPen(Qt::NoPen);
        paint(painter);
        painter.end();
        expectAlike(plotted, painted, name, 16);
    }
}

TEST(HpglDevice, KeepsToWhatPlottersTake) {
    const struct {
        const char* what;
        std::function<void(HpglDevice&)> draw;
        const char* commands;
    } rows[] = {
        {"a title within quotes", [](HpglDevice&) {}, "*CO\"say 'x'; then\";PS4000,2000;*"},
        {"a hair line, and a pen of 12.5 metres",
         [](HpglDevice& device) {
             for (const int width : {0, 500000}) {
                 device.painter().setPen(QPen(Qt::black, width));
                 device.painter().drawLine(0, 0, 9, 9);
             }
         },
         "*PW0.025;*PW12500;*"},
        {"half a red on white paper",
         [](HpglDevice& device) {
             device.painter().setOpacity(0.5);
             device.painter().fillRect(0, 0, 9, 9, Qt::red);
             EXPECT_EQ(device.shortcomings().size(), 1U);
         },
         "*PC1,255,128,128;SP1;*"},
        {"more colours than pens",
         [](HpglDevice& device) {
             for (int i = 0; i < 256; ++i) {
                 device.painter().fillRect(0, 0, 9, 9, QColor(i, 0, 0));
             }
             device.painter().fillRect(0, 0, 9, 9, QColor(6, 9, 1));
         },
         "*PC255,254,0,0;SP255;PU*FP*;\nPU*FP*;\nSP7;PU*"},
        {"a clip that goes on on the next page",
         [](HpglDevice& device) {
             device.painter().setClipRect(0, 0, 500, 400);
             device.painter().fillRect(0, 0, 9, 9, Qt::red);
             device.nextPage({120, 50}, {});
             device.painter().fillRect(0, 0, 9, 9, Qt::red);
         },
         "*IW0,1600,500,2000;*SP0;PG;\nIN;*PS4800,2000;*IW0,1600,500,2000;PC1,255,0,0;SP1;PW0.05;PU0,2000;*"},
        {"nothing without an end",
         [](HpglDevice& device) {
             device.painter().fillRect(QRectF(0, 0, qQNaN(), 9), Qt::red);
             device.painter().setPen(Qt::black);
             device.painter().drawLine(QPointF(0, qInf()), QPointF(qQNaN(), 0));
         },
         "*WU0;\nSP0;PG;\n"},
    };
    for (const auto& row : rows) {
        const QString commands = QString::fromLatin1(commandsFor(row.draw, "say \"x\";\nthen"));
        EXPECT_TRUE(isLike(commands, row.commands)) << row.what << ": " << commands.right(300).toStdString();
    }
}

TEST(HpglDevice, CutsATangleInTime) {
    QPainterPath tangle(QPointF(0, 0));
    tangle.setFillRule(Qt::WindingFill);
    std::minstd_rand random(7);
    for (int i = 0; i < 1500; ++i) {
        const auto across = static_cast<int>(random() % 4000);
        tangle.lineTo(across, static_cast<int>(random() % 2000));
    }
    QElapsedTimer time;
    time.start();
    commandsFor([&](HpglDevice& device) {
        device.painter().setClipPath(diamond());
        device.painter().fillPath(tangle, Qt::red);
    });
    EXPECT_LT(time.elapsed(), 20000) << "milliseconds";
}

TEST(HpglDevice, StepsOverAnyDistance) {
    const QByteArray commands = commandsFor([](HpglDevice& device) {
        device.painter().setPen(Qt::black);
        device.painter().drawLine(QPointF(1e12, -1e12), QPointF(-1e12, 1e12));
    });
    const int start = commands.indexOf("PE7<=") + 5;
    const std::vector<QPoint> steps = decoded(commands.mid(start, commands.indexOf(';', start) - start));
    const int farthest = 1'000'000'000; // units, which is as far as pages reach
    const std::vector<QPoint> wanted{{farthest, 2000 + farthest}, {-2 * farthest, -2 * farthest}};
    EXPECT_EQ(steps, wanted);
}

} // namespace
} // namespace kelplot
