// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QLineF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <random>

#include "device/png/RoundOutline.h"

namespace kelplot {
namespace {

double distance(QPointF p, QPointF from, QPointF to) {
    const QPointF way = to - from;
    const double square = QPointF::dotProduct(way, way);
    const double along = square > 0.0 ? std::clamp(QPointF::dotProduct(p - from, way) / square, 0.0, 1.0) : 0.0;
    return QLineF(p, from + way * along).length();
}

double distance(QPointF p, const QPolygonF& line) {
    double least = QLineF(p, line.first()).length();
    for (int i = 1; i < line.size(); ++i) {
        least = std::min(least, distance(p, line[i - 1], line[i]));
    }
    return least;
}

/// Stops at the first point where the area is not that of the pen.
void expectPenArea(const QPolygonF& line, double radius) {
    constexpr double edge = 0.04; // chords stay within a 32nd of a pixel
    QPainterPath area;
    area.addPolygon(roundOutline(line, radius));
    area.closeSubpath();
    area.setFillRule(Qt::WindingFill);
    const QRectF box = line.boundingRect().adjusted(-radius - 1, -radius - 1, radius + 1, radius + 1);
    constexpr int steps = 40;
    for (int column = 0; column < steps; ++column) {
        for (int row = 0; row < steps; ++row) {
            const QPointF at = box.topLeft() + QPointF(box.width() * column, box.height() * row) / steps;
            const double away = distance(at, line) - radius;
            if (std::abs(away) > edge) {
                ASSERT_EQ(area.contains(at), away < 0.0) << at.x() << "," << at.y() << ": " << away;
            }
        }
    }
}

TEST(RoundOutline, CoversWhatIsWithinThePensRadius) {
    const QVector<QPointF> lines[] = {
        {{5, 5}},
        {{5, 5}, {5, 5}, {5, 5}},
        {{0, 0}, {20, 7}},
        {{0, 0}, {20, 0}, {5, 0}},                    // back on itself
        {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}, // closed
        {{0, 0}, {10, 1}, {0, 2}, {10, 3}},
    };
    for (const auto& line : lines) {
        for (const double radius : {0.6, 1.0, 4.0, 30.0}) {
            SCOPED_TRACE(testing::Message() << line.size() << " points, radius " << radius);
            ASSERT_NO_FATAL_FAILURE(expectPenArea(line, radius));
        }
    }
    std::mt19937 random(1); // the standard fixes what it gives
    const auto upTo = [&](double most) {
        return most * static_cast<double>(random()) / 4294967296.0;
    };
    for (int i = 0; i < 200; ++i) {
        SCOPED_TRACE(testing::Message() << "line " << i);
        QVector<QPointF> line{{0, 0}};
        const double bend = upTo(i % 2 == 0 ? 0.5 : 6.0); // curves, and sharp corners
        const double stretch = std::exp2(upTo(8.0) - 4.0);
        double angle = 0.0;
        for (int k = 0; k < 12; ++k) {
            angle += bend * (upTo(2.0) - 0.7);
            line << line.last() + QPointF(std::cos(angle), std::sin(angle)) * stretch;
        }
        ASSERT_NO_FATAL_FAILURE(expectPenArea(line, 0.5 + upTo(6.0)));
    }
}

} // namespace
} // namespace kelplot
