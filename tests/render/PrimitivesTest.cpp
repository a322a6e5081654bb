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

TEST_F(RendererTest, RepeatedOpaquePointIsDrawnOnce) {
    renderer.setScale(2.0);
    renderer.DrawPoint({1.2, 3.7});
    renderer.DrawPoint({1.2, 3.7});
    renderer.DrawPoint({0.9, 4.4}); // the same in whole plot units, another pixel
    EXPECT_EQ(recorder.shapes(), "points 2,7\n");
    renderer.SetColor(0);
    renderer.DrawPoint({1.2, 3.7});
    EXPECT_EQ(recorder.shapes(), "points 2,7\npoints 2,7\n");
}

TEST_F(RendererTest, TranslucentPointsAllShow) {
    renderer.DrawPoint({5, 5});
    renderer.SetAlpha(128);
    renderer.DrawPoint({5, 5});
    renderer.DrawPoint({6, 6});
    renderer.DrawPoint({6, 6});
    renderer.SetAlpha(255);
    renderer.DrawPoint({5, 5}); // still the last opaque one
    EXPECT_EQ(recorder.shapes(), "points 5,5\npoints 5,5\npoints 6,6\npoints 6,6\n");
}

TEST_F(RendererTest, PointRunsSnapToTheDeviceGrid) {
    const struct {
        const char* name;
        double scale;
        Points points;
        const char* polyline;
        const char* bezier;
        const char* polygon;
    } rows[] = {
        {"scaled before rounding, halves away from zero",
         2.0,
         {{0.2, 0.3}, {1.25, -1.25}, {-3, 4}},
         "polyline 0,1 3,-3 -6,8\n",
         "polyline 0,1 3,-3 -6,8\n",
         "path M0,1 L3,-3 L-6,8\n"},
        {"consecutive duplicates drop out of lines and polygons",
         1.0,
         {{0, 0}, {0.2, 0.2}, {5, 0}, {5.4, 0.4}, {0, 0}},
         "polyline 0,0 5,0 0,0\n",
         "polyline 0,0 0,0 5,0 5,0 0,0\n",
         "path M0,0 L5,0 L0,0\n"},
        {"two pixels",
         -1.0,
         {{0, 0}, {0.2, 0.2}, {5, 0}},
         "polyline 0,0 -5,0\n",
         "polyline 0,0 0,0 -5,0\n",
         "polyline 0,0 -5,0\n"},
        {"one pixel",
         1.0,
         {{4, 4}, {4.1, 4.1}, {3.9, 3.9}},
         "line 4,4 5,4\n",
         "polyline 4,4 4,4 4,4\n",
         "points 4,4\n"},
        {"one point, scaled", 3.0, {{4, 4}}, "line 12,12 13,12\n", "", "points 12,12\n"},
        {"far points saturate",
         1e6,
         {{-1e9, 1e9}, {infinity, -infinity}, {0, 0}},
         "polyline -2147483648,2147483647 2147483647,-2147483648 0,0\n",
         "polyline -2147483648,2147483647 2147483647,-2147483648 0,0\n",
         "path M-2147483648,2147483647 L2147483647,-2147483648 L0,0\n"},
        {"not a number counts as zero",
         1.0,
         {{notANumber, 1}, {2, notANumber}},
         "polyline 0,1 2,0\n",
         "polyline 0,1 2,0\n",
         "polyline 0,1 2,0\n"},
        {"the last pixel", 1.0, {{1e10, 0}}, "line 2147483647,0 2147483647,0\n", "", "points 2147483647,0\n"},
    };
    for (const auto& row : rows) {
        renderer.setScale(row.scale);
        renderer.SetColor(0); // lets a point count as new
        const auto drawn = [&](auto draw) {
            recorder.clear();
            (renderer.*draw)(row.points.data(), static_cast<int>(row.points.size()));
            return recorder.shapes();
        };
        EXPECT_EQ(drawn(&QTRenderer::DrawPolyline), row.polyline) << row.name;
        EXPECT_EQ(drawn(&QTRenderer::DrawBezier), row.bezier) << row.name;
        EXPECT_EQ(drawn(&QTRenderer::FillPolygon), row.polygon) << row.name;
    }
}

TEST_F(RendererTest, CountsOfZeroOrLess) {
    const HT_Double_Point point = {7, 8};
    for (const int count : {0, -1, INT32_MIN}) {
        recorder.clear();
        renderer.DrawPolyline(&point, count); // one point is there, whatever the count
        renderer.DrawBezier(&point, count);
        renderer.FillPolygon(&point, count);
        EXPECT_EQ(recorder.shapes(), "line 7,8 8,8\n") << "count " << count;
    }
    recorder.clear();
    renderer.DrawPolyline(nullptr, 0);
    renderer.DrawBezier(nullptr, 0);
    renderer.FillPolygon(nullptr, 0);
    EXPECT_EQ(recorder.shapes(), "");
}

// Sizes on both sides of what is held inside the calls.
TEST_F(RendererTest, LongRunsArriveWhole) {
    for (const int count : {1023, 1024, 1025, 2048, 2049, 50000}) {
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

class ArcTest : public RendererTest {
protected:
    // Where a fraction of the recorded arc lies on the page.
    QPointF onPage(double fraction) const {
        const PlotRecorder::Call& call = recorder.calls().back();
        return call.transform.map(call.path.pointAtPercent(fraction));
    }
};

TEST_F(ArcTest, EndsLieOnTheTrueEllipse) {
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
        // Angles are cut to sixteenths of a degree.
        const double tolerance = 0.01 + row.radiusX * row.scale * pi / 180 / 8;
        for (const auto& [fraction, t] : {std::pair(0.0, row.start), std::pair(1.0, row.end)}) {
            const double u = row.radiusX * std::cos(t);
            const double v = row.radiusY * std::sin(t);
            const double x = row.center.x + u * std::cos(row.rotation) - v * std::sin(row.rotation);
            const double y = row.center.y - u * std::sin(row.rotation) - v * std::cos(row.rotation);
            EXPECT_NEAR(onPage(fraction).x(), x * row.scale, tolerance) << row.name;
            EXPECT_NEAR(onPage(fraction).y(), y * row.scale, tolerance) << row.name;
        }
    }
}

TEST_F(ArcTest, AnglesAreCutToSixteenthsOfADegree) {
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

TEST_F(ArcTest, LeavesThePainterAsItWas) {
    painter.setTransform(QTransform::fromScale(3, 3));
    renderer.DrawArc({10, 10}, 5, 5, 1.0, 0, 1);
    EXPECT_EQ(painter.transform(), QTransform::fromScale(3, 3));
    EXPECT_NEAR(recorder.calls().back().transform.m11(), std::cos(1.0), 1e-6); // replaced, not combined
}

TEST_F(ArcTest, SmallArcsBecomePoints) {
    const struct {
        double radiusX;
        double radiusY;
        bool isPoint;
    } cases[] = {{0.5, 0.9, true}, {0.5, 1.0, false}, {1.0, 0.5, false}, {-5, 0.5, true}, {notANumber, 0.5, false}};
    renderer.setScale(100.0); // does not count
    for (const auto& c : cases) {
        recorder.clear();
        renderer.SetColor(0);
        renderer.DrawArc({3, 4}, c.radiusX, c.radiusY, 0, 0, 1);
        EXPECT_EQ(recorder.shapes() == "points 300,400\n", c.isPoint) << c.radiusX << ", " << c.radiusY;
    }
}

TEST_F(ArcTest, ExtremeArgumentsAreHarmless) {
    const double extremes[] = {1e300, -1e300, infinity, -infinity, notANumber};
    for (const double value : extremes) {
        renderer.DrawArc({value, 0}, 5, 5, 0, 0, 1);
        renderer.DrawArc({0, 0}, value, value, 0, 0, 1);
        renderer.DrawArc({0, 0}, 5, 5, value, 0, 1);
        renderer.DrawArc({0, 0}, 5, 5, 0, value, 1);
        renderer.DrawArc({0, 0}, 5, 5, 0, 0, value);
    }
    recorder.clear();
    renderer.DrawPolyline(Points{{0, 0}, {5, 0}}.data(), 2);
    EXPECT_EQ(recorder.shapes(), "polyline 0,0 5,0\n");
}

} // namespace
