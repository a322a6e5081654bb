// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>
#include <limits>
#include <vector>

#include "render/RendererFixture.h"

namespace {

using Points = std::vector<HT_Double_Point>;

constexpr double infinity = std::numeric_limits<double>::infinity();
const double notANumber = std::nan("");
constexpr double pi = 3.141592653589793;

// Sizes on both sides of what is held inside the calls.
TEST_F(RendererTest, LongRunsArriveWhole) {
    for (const int count : {1023, 1024, 1025, 2048, 2049}) {
        Points points;
        std::string polyline = "polyline";
        std::string path = "path";
        for (int i = 0; i < count; ++i) {
            points.push_back({i + 0.25, static_cast<double>(i % 2)});
            const std::string pixel = std::to_string(i) + "," + std::to_string(i % 2);
            polyline += " " + pixel;
            path += (i == 0 ? " M" : " L") + pixel;
        }
        recorder.clear();
        renderer.DrawPolyline(points.data(), count);
        renderer.DrawBezier(points.data(), count);
        renderer.FillPolygon(points.data(), count);
        ASSERT_EQ(recorder.calls().size(), 3U);
        EXPECT_TRUE(recorder.calls()[0].shape == polyline) << count << " points";
        EXPECT_TRUE(recorder.calls()[1].shape == polyline) << count << " points";
        EXPECT_TRUE(recorder.calls()[2].shape == path) << count << " points";
    }
}

TEST_F(RendererTest, SubclassesAreAskedForPointsAndArcs) {
    struct Subclass : QTRenderer {
        void DrawPoint(const HT_Double_Point& p) override { asked = {p.x, p.y}; }
        void DrawArc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation, double start,
                     double end) override {
            asked = {center.x, center.y, radiusX, radiusY, rotation, start, end};
            QTRenderer::DrawArc({center.x, center.y}, radiusX / 10, radiusY / 10, rotation, start, end);
        }
        std::vector<double> asked;
    };
    Subclass subclass;
    subclass.setScale(10.0); // is left to what is asked for
    subclass.DrawEllipse({3, 4}, 70, 50, 0.25);
    EXPECT_TRUE(subclass.asked.empty()) << "without a painter nothing is drawn";
    subclass.AttachDriver(&painter, {0, 0}, false);
    const HT_Double_Point dot[] = {{0.51, 0.52}, {0.5, 0.54}};
    subclass.FillPolygon(dot, 2);
    EXPECT_EQ(subclass.asked, (std::vector<double>{0.51, 0.52}));
    subclass.DrawEllipse({3, 4}, 70, 50, 0.25);
    EXPECT_EQ(subclass.asked, (std::vector<double>{3, 4, 70, 50, 0.25, 0, 2 * pi}));
    subclass.DrawArc({3, 4}, 5, 9, 0, 0, 1);
    EXPECT_EQ(subclass.asked, (std::vector<double>{3, 4})) << "a small arc is a point";
}

// Where the ends of an arc lie on the page, and that the painter's own transform is replaced, then put back.
TEST_F(RendererTest, ArcsEndOnTheTrueEllipse) {
    const QTransform own = QTransform::fromScale(3, 3);
    painter.setTransform(own);
    const struct {
        const char* name;
        double scale;
        HT_Double_Point center;
        double radiusX, radiusY, rotation, start, end;
    } rows[] = {
        {"turned ellipse, scaled", 2, {300, 200}, 80, 40, pi / 6, 0.5, 2.5},
        {"clockwise", 1, {0, 0}, 60, 30, -1, 2, 0.25},
        {"over the zero angle", 1, {0, 0}, 60, 30, 0, 5, 7},
    };
    for (const auto& row : rows) {
        recorder.clear();
        renderer.setScale(row.scale);
        renderer.DrawArc(row.center, row.radiusX, row.radiusY, row.rotation, row.start, row.end);
        ASSERT_EQ(recorder.calls().size(), 1U) << row.name;
        const PlotRecorder::Call& call = recorder.calls().back();
        // Angles are cut to sixteenths of a degree.
        const double tolerance = 0.01 + row.radiusX * row.scale * pi / 180 / 8;
        for (const auto& [fraction, t] : {std::pair(0.0, row.start), std::pair(1.0, row.end)}) {
            const QPointF onPage = call.transform.map(call.path.pointAtPercent(fraction));
            const double u = row.radiusX * std::cos(t);
            const double v = row.radiusY * std::sin(t);
            const double x = row.center.x + u * std::cos(row.rotation) - v * std::sin(row.rotation);
            const double y = row.center.y - u * std::sin(row.rotation) - v * std::cos(row.rotation);
            EXPECT_NEAR(onPage.x(), x * row.scale, tolerance) << row.name;
            EXPECT_NEAR(onPage.y(), y * row.scale, tolerance) << row.name;
        }
        EXPECT_EQ(painter.transform(), own) << row.name;
    }
}

TEST_F(RendererTest, ArcAnglesAreCutToSixteenthsOfADegree) {
    renderer.DrawArc({0, 0}, 1000, 500, 0, 0.9999 / 16 * pi / 180, -(1.9999 / 16) * pi / 180);
    renderer.DrawEllipse({0, 0}, 1000, 500, 0);
    ASSERT_EQ(recorder.calls().size(), 2U);
    for (const auto& [call, sweep] : {std::pair(0U, -2.0 / 16), std::pair(1U, 360.0)}) {
        QPainterPath expected;
        expected.arcMoveTo(QRectF(-1000, -500, 2000, 1000), 0);
        expected.arcTo(QRectF(-1000, -500, 2000, 1000), 0, sweep);
        EXPECT_EQ(recorder.calls()[call].path, expected) << sweep;
    }
}

TEST_F(RendererTest, SmallArcsBecomePointsAndExtremeOnesAreHarmless) {
    const struct {
        double radiusX;
        double radiusY;
        bool isPoint;
    } cases[] = {{0.5, 0.9, true}, {0.5, 1.0, false}, {1.0, 0.5, false}, {-5, 0.5, true}, {notANumber, 0.5, false}};
    renderer.setScale(100.0); // does not count
    for (const auto& c : cases) {
        recorder.clear();
        renderer.SetColor(0); // lets the point count as new
        renderer.DrawArc({3, 4}, c.radiusX, c.radiusY, 0, 0, 1);
        EXPECT_EQ(recorder.shapes() == "points 300,400\n", c.isPoint) << c.radiusX << ", " << c.radiusY;
    }
    for (const double value : {1e300, -1e300, infinity, -infinity, notANumber}) {
        renderer.DrawArc({value, 0}, 5, 5, 0, 0, 1);
        renderer.DrawArc({0, 0}, value, value, 0, 0, 1);
        renderer.DrawArc({0, 0}, 5, 5, value, 0, 1);
        renderer.DrawArc({0, 0}, 5, 5, 0, value, 1);
        renderer.DrawArc({0, 0}, 5, 5, 0, 0, value);
    }
}

} // namespace
