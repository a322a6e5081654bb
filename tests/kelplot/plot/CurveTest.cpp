// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "geometry/Nurbs.h"
#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

constexpr double pi = 3.141592653589793;
using Shape = RecordingRenderer::Shape;

constexpr int steps = 360;

/// An angle as the renderer takes it, cut down to a sixteenth of a degree.
double cut(double angle) {
    return std::trunc(angle * 57.29577951308232 * 16.0) / 16.0 / 57.29577951308232;
}

/// Points that a curve was drawn through, in order, along whatever way it was drawn.
std::vector<Vec2> trace(const std::vector<Shape>& shapes) {
    std::vector<Vec2> points;
    for (const Shape& shape : shapes) {
        if (shape.kind != "arc") {
            points.insert(points.end(), shape.points.begin(), shape.points.end());
            continue;
        }
        for (int i = 0; i <= steps; ++i) {
            points.push_back(shape.arcPoint(cut(shape.start) + cut(shape.end - shape.start) * i / steps));
        }
    }
    return points;
}

/// How far two paths are from each other at most, looking from the corners of both.
double gap(const std::vector<Vec2>& a, const std::vector<Vec2>& b) {
    double worst = 0.0;
    for (const Vec2 p : a) {
        worst = std::max(worst, distanceToPath(p, b));
    }
    for (const Vec2 p : b) {
        worst = std::max(worst, distanceToPath(p, a));
    }
    return worst;
}

/// How an arc in a block gets to the page.
const struct Placement {
    const char* name;
    Vec3 scale;
    double rotation;
    bool mirrored; ///< the reference's plane is seen from below
} placements[] = {
    {"as it is", {1.0, 1.0, 1.0}, 0.0, false},      {"mirrored in x", {-1.0, 1.0, 1.0}, 0.3, false},
    {"stretched", {2.0, 0.5, 1.0}, 1.1, false},     {"stretched and mirrored", {1.5, -0.5, 1.0}, -2.0, false},
    {"from below", {1.0, 1.0, 1.0}, 0.4, true},     {"from below, stretched", {3.0, 0.6, 1.0}, 2.5, true},
    {"squashed flat", {1.0, 0.0, 1.0}, 0.5, false}, {"enlarged", {12.0, 12.0, 1.0}, 0.25, false},
};

/// Device coordinates of a point of the block, by the steps one by one.
Vec2 placed(const Placement& placement, Vec2 p) {
    const Vec2 scaled{p.x * placement.scale.x, p.y * placement.scale.y};
    const double x = scaled.x * std::cos(placement.rotation) - scaled.y * std::sin(placement.rotation);
    const double y = scaled.x * std::sin(placement.rotation) + scaled.y * std::cos(placement.rotation);
    return {10.0 * (50.0 + (placement.mirrored ? -x : x)), 1000.0 - 10.0 * (50.0 + y)};
}

std::vector<Shape> placedShapes(const Placement& placement, Geometry geometry) {
    Insert reference = referenceTo(0);
    reference.position = {placement.mirrored ? -50.0 : 50.0, 50.0, 0.0};
    reference.scale = placement.scale;
    reference.rotation = placement.rotation;
    PlotTarget target = tenfoldTarget();
    target.pageBox = target.pageBox.inflated(10000.0);
    const Vec3 extrusion{0.0, 0.0, placement.mirrored ? -1.0 : 1.0};
    return shapesOf(drawingOf(entityOf(std::move(geometry)), entityOf(reference, extrusion)), target);
}

TEST(Arcs, LieOnTheTrueCurveHoweverPlaced) {
    const Vec2 major{3, 4}, minor{-1.6, 1.2};
    const struct {
        const char* name;
        Geometry geometry;
        Vec2 center, u, v; ///< the curve center + u·cos t + v·sin t
        double start, end;
    } cases[] = {
        {"circle", Circle{{1, 2, 0}, 5.0}, {1, 2}, {5, 0}, {0, 5}, 0.0, 2 * pi},
        {"small arc", Arc{{1, 2, 0}, 5.0, 0.3, 1.234}, {1, 2}, {5, 0}, {0, 5}, 0.3, 1.234},
        {"arc over zero", Arc{{1, 2, 0}, 10.0, 5.5, 1.0}, {1, 2}, {10, 0}, {0, 10}, 5.5, 1.0 + 2 * pi},
        {"angles of other turns", Arc{{0, 0, 0}, 9.0, -7.0, 20.0}, {0, 0}, {9, 0}, {0, 9}, -7.0, 20.0 - 8 * pi},
        {"sliver", Arc{{0, 0, 0}, 15.0, 1.0, 1.0001}, {0, 0}, {15, 0}, {0, 15}, 1.0, 1.0001},
        {"six digits", Ellipse{{0, 0, 0}, {3, 4, 0}, 0.4, 0, 6.283186}, {0, 0}, major, minor, 0.0, 2 * pi},
        {"elliptic arc", Ellipse{{0, 0, 0}, {3, 4, 0}, 0.4, 1.0, 4.0}, {0, 0}, major, minor, 1.0, 4.0},
    };
    constexpr double mostGap = 0.65; // half a device unit for the renderer's angles, 0.15 for flattening
    for (const auto& row : cases) {
        for (const Placement& placement : placements) {
            std::vector<Vec2> expected;
            for (int i = 0; i <= steps; ++i) {
                const double t = row.start + (row.end - row.start) * i / steps;
                expected.push_back(placed(placement, row.center + row.u * std::cos(t) + row.v * std::sin(t)));
            }
            const auto points = trace(placedShapes(placement, row.geometry));
            EXPECT_LT(gap(points, expected), mostGap) << row.name << ", " << placement.name;
        }
    }
}

TEST(Arcs, EndWithinOneTurnAfterTheirStart) {
    const double turn = 2 * pi;
    const struct {
        const char* name;
        double start, end;
        double span;
    } cases[] = {
        {"equal", 1.0, 1.0, turn},
        {"six digits, rounded up", 0.0, 6.283186, turn},
        {"six digits, rounded down", 0.0, 6.283185, turn},
        {"360.0001 degrees", 0.0, 360.0001 * pi / 180, turn},
        {"359.9999 degrees", 0.0, 359.9999 * pi / 180, turn},
        {"clockwise turn", 6.283186, 0.0, turn},
        {"end a little before the start", 1.0, 1.0 - 1e-7, turn},
        {"tiny", 1.0, 1.0 + 2e-6, 2e-6},
        {"small over zero", 6.2831, 6.2831 - turn + 1e-3, 1e-3},
        {"nearly a turn", 0.0, turn - 1e-3, turn - 1e-3},
        {"turns away", -7.0, 20.0, 27.0 - 4 * turn},
    };
    for (const auto& row : cases) {
        EXPECT_NEAR(endWithinTurn(row.start, row.end) - row.start, row.span, 1e-12) << row.name;
    }
}

TEST(Arcs, GoToTheRendererAsArcsWhereItIsExact) {
    const auto kindOf = [](const Geometry& geometry) {
        const auto shapes = shapesOf(entityOf(geometry));
        return shapes.empty() ? std::string("nothing") : shapes[0].kind;
    };
    EXPECT_EQ(kindOf(Circle{{50, 50, 0}, 40.0}), "arc");
    EXPECT_EQ(kindOf(Arc{{50, 50, 0}, 40.0, 0.0, pi / 2}), "arc") << "whole sixteenths of a degree";
    EXPECT_EQ(kindOf(Arc{{50, 50, 0}, 5.0, 0.1, 1.0}), "arc") << "small";
    EXPECT_EQ(kindOf(Arc{{-100, -100, 0}, 200.0, 0.5, 1.0}), "line") << "its end would miss";
    EXPECT_EQ(kindOf(Circle{{50, 50, 0}, 1e9}), "nothing") << "far off the page";

    const auto shapes = shapesOf(entityOf(Arc{{50, 50, 0}, 10.0, pi / 6, pi / 2}));
    ASSERT_EQ(shapes.at(0).kind, "arc");
    EXPECT_NEAR(cut(shapes[0].start), pi / 6, 1e-9) << "angles survive being cut";
    EXPECT_NEAR(cut(shapes[0].end - shapes[0].start), pi / 3, 1e-9);
}

TEST(Arcs, OfHugeRadiusPassThePageWithFewPoints) {
    // A circle of 10,000 km whose lowest point is the middle of the page.
    const auto shapes = shapesOf(entityOf(Circle{{50.0, 50.0 + 1e10, 0.0}, 1e10}));
    size_t count = 0;
    bool throughMiddle = false;
    for (const Shape& shape : shapes) {
        count += shape.points.size();
        throughMiddle = throughMiddle || distanceToPath({500.0, 500.0}, shape.points) < 0.2;
    }
    EXPECT_TRUE(throughMiddle);
    EXPECT_LT(count, 1000U);
}

TEST(Splines, OfAnyDegreeThatFilesMayHaveFollowTheirPolynomial) {
    for (const int degree : {3, 15, 16, 20, NurbsCurve::maxDegree}) {
        Spline spline; // one span
        spline.degree = degree;
        spline.knots.assign(static_cast<size_t>(degree) + 1, 0.0);
        spline.knots.resize(2 * spline.knots.size(), 1.0);
        for (int i = 0; i <= degree; ++i) {
            spline.controlPoints.push_back({10.0 + 80.0 * i / degree, i % 5 < 2 ? 5.0 : 95.0, 0.0});
        }
        std::vector<Vec2> expected;
        for (int step = 0; step <= 1000; ++step) {
            const double t = step / 1000.0;
            double choices = 1.0; // of i among `degree`
            Vec2 p;
            for (int i = 0; i <= degree; ++i) {
                const Vec3& control = spline.controlPoints[static_cast<size_t>(i)];
                p = p + Vec2{control.x, control.y} * (choices * std::pow(t, i) * std::pow(1.0 - t, degree - i));
                choices *= static_cast<double>(degree - i) / (i + 1);
            }
            expected.push_back({10 * p.x, 1000 - 10 * p.y});
        }
        const std::vector<Vec2> points = shapesOf(entityOf(spline)).at(0).points;
        EXPECT_LT(gap(points, expected), 0.11) << degree;
        EXPECT_LT(points.size(), 400U) << "flattened too finely, " << degree;
    }
}

TEST(Splines, PeriodicOnesCloseOnTheirKnotDomain) {
    Spline spline; // a uniform cubic whose first three control points come again at the end
    spline.closed = true;
    for (int i = 0; i < 7; ++i) {
        const double corners[][2] = {{30, 30}, {70, 30}, {70, 70}, {30, 70}};
        spline.controlPoints.push_back({corners[i % 4][0], corners[i % 4][1], 0.0});
    }
    for (int i = 0; i < 11; ++i) {
        spline.knots.push_back(i);
    }
    const auto points = shapesOf(entityOf(spline)).at(0).points;
    // A uniform cubic starts at the mean of its first three controls, weighted 1, 4, 1.
    EXPECT_LT((points.front() - Vec2{10 * (30 + 4 * 70 + 70) / 6.0, 1000 - 10 * (30 + 4 * 30 + 70) / 6.0}).length(),
              1e-6);
    EXPECT_LT((points.back() - points.front()).length(), 1e-6);
}

TEST(Splines, ThroughFitPointsAreSmooth) {
    Spline spline;
    for (int i = 0; i < 12; ++i) {
        spline.fitPoints.push_back({50 + 40 * std::cos(pi / 6 * i), 50 + 40 * std::sin(pi / 6 * i), 0.0});
    }
    spline.closed = true;
    const auto points = shapesOf(entityOf(spline)).at(0).points;
    for (const Vec2 p : points) {
        EXPECT_NEAR((p - Vec2{500, 500}).length(), 400.0, 1.0);
    }
    EXPECT_LT((points.back() - points.front()).length(), 1e-6);
    for (const Vec3& fit : spline.fitPoints) {
        EXPECT_LT(distanceToPath({10 * fit.x, 1000 - 10 * fit.y}, points), 0.1);
    }
}

} // namespace
} // namespace kelplot
