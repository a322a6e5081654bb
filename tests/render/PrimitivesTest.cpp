#include <cmath>
#include <limits>
#include <vector>

#include "render/RendererFixture.h"

namespace {

using Points = std::vector<HT_Double_Point>;

constexpr double infinity = std::numeric_limits<double>::infinity();
const double notANumber = std::nan("");
constexpr double pi = 3.141592653589793;

class PointTest : public RendererTest {};

TEST_F(PointTest, RepeatedOpaquePointIsDrawnOnce) {
    renderer.setScale(2.0);
    renderer.DrawPoint({1.2, 3.7});
    renderer.DrawPoint({1.2, 3.7});
    renderer.DrawPoint({0.9, 4.4}); // the same in whole plot units, another pixel
    EXPECT_EQ(recorder.shapes(), "points 2,7\n");
    renderer.SetColor(0);
    renderer.DrawPoint({1.2, 3.7});
    EXPECT_EQ(recorder.shapes(), "points 2,7\npoints 2,7\n");
}

TEST_F(PointTest, TranslucentPointsAllShow) {
    renderer.DrawPoint({5, 5});
    renderer.SetAlpha(128);
    renderer.DrawPoint({5, 5});
    renderer.DrawPoint({6, 6});
    renderer.DrawPoint({6, 6});
    renderer.SetAlpha(255);
    renderer.DrawPoint({5, 5}); // still the last opaque one
    EXPECT_EQ(recorder.shapes(), "points 5,5\npoints 5,5\npoints 6,6\npoints 6,6\n");
}

struct RunCase {
    const char* name;
    double scale;
    Points points;
    const char* polyline;
    const char* bezier;
    const char* polygon;
};

std::ostream& operator<<(std::ostream& out, const RunCase& c) {
    return out << c.name;
}

class PointRun : public RendererTest, public ::testing::WithParamInterface<RunCase> {
protected:
    template <typename Draw>
    std::string drawn(Draw draw) {
        recorder.clear();
        renderer.setScale(GetParam().scale);
        (renderer.*draw)(GetParam().points.data(), static_cast<int>(GetParam().points.size()));
        return recorder.shapes();
    }
};

TEST_P(PointRun, SnapsToTheDeviceGrid) {
    EXPECT_EQ(drawn(&QTRenderer::DrawPolyline), GetParam().polyline);
    EXPECT_EQ(drawn(&QTRenderer::DrawBezier), GetParam().bezier);
    EXPECT_EQ(drawn(&QTRenderer::FillPolygon), GetParam().polygon);
}

INSTANTIATE_TEST_SUITE_P(
    Primitives, PointRun,
    ::testing::Values(RunCase{"scaled before rounding, halves away from zero",
                              2.0,
                              {{0.2, 0.3}, {1.25, -1.25}, {-3, 4}},
                              "polyline 0,1 3,-3 -6,8\n",
                              "polyline 0,1 3,-3 -6,8\n",
                              "path M0,1 L3,-3 L-6,8\n"},
                      RunCase{"consecutive duplicates drop out of lines and polygons",
                              1.0,
                              {{0, 0}, {0.2, 0.2}, {5, 0}, {5.4, 0.4}, {0, 0}},
                              "polyline 0,0 5,0 0,0\n",
                              "polyline 0,0 0,0 5,0 5,0 0,0\n",
                              "path M0,0 L5,0 L0,0\n"},
                      RunCase{"two pixels",
                              1.0,
                              {{0, 0}, {0.2, 0.2}, {5, 0}},
                              "polyline 0,0 5,0\n",
                              "polyline 0,0 0,0 5,0\n",
                              "polyline 0,0 5,0\n"},
                      RunCase{"one pixel",
                              1.0,
                              {{4, 4}, {4.1, 4.1}, {3.9, 3.9}},
                              "line 4,4 5,4\n",
                              "polyline 4,4 4,4 4,4\n",
                              "points 4,4\n"},
                      RunCase{"one point, scaled", 3.0, {{4, 4}}, "line 12,12 13,12\n", "", "points 12,12\n"},
                      RunCase{"far points saturate",
                              1e6,
                              {{-1e9, 1e9}, {infinity, -infinity}, {0, 0}},
                              "polyline -2147483648,2147483647 2147483647,-2147483648 0,0\n",
                              "polyline -2147483648,2147483647 2147483647,-2147483648 0,0\n",
                              "path M-2147483648,2147483647 L2147483647,-2147483648 L0,0\n"},
                      RunCase{"not a number counts as zero",
                              1.0,
                              {{notANumber, 1}, {2, notANumber}},
                              "polyline 0,1 2,0\n",
                              "polyline 0,1 2,0\n",
                              "polyline 0,1 2,0\n"},
                      RunCase{"a single pixel at the end of the range",
                              1.0,
                              {{1e10, 0}},
                              "line 2147483647,0 2147483647,0\n",
                              "",
                              "points 2147483647,0\n"},
                      RunCase{"negative scale",
                              -1.0,
                              {{1, 2}, {3, 4}},
                              "polyline -1,-2 -3,-4\n",
                              "polyline -1,-2 -3,-4\n",
                              "polyline -1,-2 -3,-4\n"}));

TEST_F(RendererTest, CountsOfZeroOrLess) {
    const HT_Double_Point point = {7, 8};
    for (const int count : {0, -1, INT32_MIN}) {
        recorder.clear();
        renderer.DrawPolyline(&point, count); // callers pass one point at least, whatever the count
        renderer.DrawBezier(&point, count);
        renderer.FillPolygon(&point, count);
        EXPECT_EQ(recorder.shapes(), "line 7,8 8,8\n") << "count " << count;
    }
}

TEST_F(RendererTest, NullPointsDrawNothing) {
    renderer.DrawPolyline(nullptr, 0);
    renderer.DrawBezier(nullptr, 0);
    renderer.FillPolygon(nullptr, 0);
    EXPECT_EQ(recorder.shapes(), "");
}

// Sizes on both sides of what is held inside the calls.
TEST_F(RendererTest, LongRunsArriveWhole) {
    for (const int count : {1023, 1024, 1025, 2047, 2048, 2049, 4097, 50000}) {
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

TEST_F(RendererTest, PolygonOfOnePixelReachesPointsOfSubclasses) {
    struct KeepsPoint : QTRenderer {
        void DrawPoint(const HT_Double_Point& p) override { point = p; }
        HT_Double_Point point{0, 0};
    };
    KeepsPoint subclass;
    subclass.AttachDriver(&painter, {0, 0}, false);
    subclass.setScale(10.0);
    const HT_Double_Point dot[] = {{0.51, 0.52}, {0.5, 0.54}};
    subclass.FillPolygon(dot, 2);
    EXPECT_EQ(subclass.point.x, 0.51);
    EXPECT_EQ(subclass.point.y, 0.52);
    subclass.DrawArc({3, 4}, 0.5, 0.9, 0, 0, 1);
    EXPECT_EQ(subclass.point.x, 3);
}

TEST_F(RendererTest, EllipseReachesArcsOfSubclasses) {
    struct KeepsArcs : QTRenderer {
        void DrawArc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation, double start,
                     double end) override {
            arcs.push_back({center.x, center.y, radiusX, radiusY, rotation, start, end});
        }
        std::vector<std::vector<double>> arcs;
    };
    KeepsArcs subclass;
    subclass.setScale(10.0); // is left to DrawArc
    subclass.DrawEllipse({3, 4}, 7, 5, 0.25);
    EXPECT_TRUE(subclass.arcs.empty()); // without a painter nothing is drawn
    subclass.AttachDriver(&painter, {0, 0}, false);
    subclass.DrawEllipse({3, 4}, 7, 5, 0.25);
    EXPECT_EQ(subclass.arcs, (std::vector<std::vector<double>>{{3, 4, 7, 5, 0.25, 0, 2 * pi}}));
}

class ArcTest : public RendererTest {
protected:
    // Where a fraction of the recorded arc lies on the page.
    QPointF onPage(double fraction) const {
        const PlotRecorder::Call& call = recorder.calls().back();
        return call.transform.map(call.path.pointAtPercent(fraction));
    }
};

struct ArcCase {
    const char* name;
    double scale;
    HT_Double_Point center;
    double radiusX;
    double radiusY;
    double rotation;
    double start;
    double end;
};

std::ostream& operator<<(std::ostream& out, const ArcCase& c) {
    return out << c.name;
}

class ArcEnds : public ArcTest, public ::testing::WithParamInterface<ArcCase> {};

void expectNear(const QPointF& actual, const QPointF& expected, double tolerance) {
    EXPECT_NEAR(actual.x(), expected.x(), tolerance);
    EXPECT_NEAR(actual.y(), expected.y(), tolerance);
}

TEST_P(ArcEnds, LieOnTheTrueEllipse) {
    const ArcCase& c = GetParam();
    renderer.setScale(c.scale);
    renderer.DrawArc(c.center, c.radiusX, c.radiusY, c.rotation, c.start, c.end);
    ASSERT_EQ(recorder.calls().size(), 1U);
    const auto exact = [&c](double t) -> QPointF {
        const double u = c.radiusX * std::cos(t);
        const double v = c.radiusY * std::sin(t);
        const double r = c.rotation;
        return QPointF(c.center.x + u * std::cos(r) - v * std::sin(r), c.center.y - u * std::sin(r) - v * std::cos(r)) *
               c.scale;
    };
    // Angles are cut to sixteenths of a degree.
    const double tolerance = 0.01 + c.radiusX * c.scale * pi / 180 / 16;
    expectNear(onPage(0.0), exact(c.start), tolerance);
    expectNear(onPage(1.0), exact(c.end), 2 * tolerance);
}

INSTANTIATE_TEST_SUITE_P(Primitives, ArcEnds,
                         ::testing::Values(ArcCase{"quarter", 1, {100, 100}, 50, 50, 0, 0, pi / 2},
                                           ArcCase{"turned ellipse", 1, {300, 200}, 80, 40, pi / 6, 0.5, 2.5},
                                           ArcCase{"scaled", 2, {300, 200}, 80, 40, pi / 6, 0.5, 2.5},
                                           ArcCase{"clockwise", 1, {0, 0}, 60, 30, -1, 2, 0.25},
                                           ArcCase{"over the zero angle", 1, {0, 0}, 60, 30, 0, 5, 7}));

TEST_F(ArcTest, EllipseIsAFullTurn) {
    renderer.DrawEllipse({100, 100}, 50, 25, 0);
    QPainterPath expected;
    expected.arcMoveTo(QRectF(50, 75, 100, 50), 0);
    expected.arcTo(QRectF(50, 75, 100, 50), 0, 360); // 5760 sixteenths of a degree
    ASSERT_EQ(recorder.calls().size(), 1U);
    EXPECT_EQ(recorder.calls()[0].path, expected);
}

TEST_F(ArcTest, AnglesAreCutToSixteenthsOfADegree) {
    renderer.DrawArc({0, 0}, 1000, 1000, 0, 0.9999 / 16 * pi / 180, -(1.9999 / 16) * pi / 180);
    QPainterPath expected;
    expected.arcMoveTo(QRectF(-1000, -1000, 2000, 2000), 0);
    expected.arcTo(QRectF(-1000, -1000, 2000, 2000), 0, -2.0 / 16);
    ASSERT_EQ(recorder.calls().size(), 1U);
    EXPECT_EQ(recorder.calls()[0].path, expected);
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
