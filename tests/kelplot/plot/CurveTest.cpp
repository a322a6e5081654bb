// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "geometry/Nurbs.h"
#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

constexpr double pi = 3.141592653589793;
constexpr double turn = 2 * pi;
constexpr double degrees = 180 / pi;
constexpr int steps = 360;

std::vector<Vec2> trace(const Shapes& shapes) {
    std::vector<Vec2> points;
    for (const Shape& shape : shapes) {
        const std::vector<Vec2> more = shape.points();
        points.insert(points.end(), more.begin(), more.end());
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
    Vec2 scale;
    double rotation;
    bool mirrored; ///< the reference's plane is seen from below
} placements[] = {
    {"as it is", {1.0, 1.0}, 0.0, false},      {"mirrored in x", {-1.0, 1.0}, 0.3, false},
    {"stretched", {2.0, 0.5}, 1.1, false},     {"stretched and mirrored", {1.5, -0.5}, -2.0, false},
    {"from below", {1.0, 1.0}, 0.4, true},     {"from below, stretched", {3.0, 0.6}, 2.5, true},
    {"squashed flat", {1.0, 0.0}, 0.5, false}, {"enlarged", {12.0, 12.0}, 0.25, false},
};

/// Device coordinates of a point of the block, by the steps one by one.
Vec2 placed(const Placement& placement, Vec2 p) {
    const Vec2 scaled{p.x * placement.scale.x, p.y * placement.scale.y};
    const double x = scaled.x * std::cos(placement.rotation) - scaled.y * std::sin(placement.rotation);
    const double y = scaled.x * std::sin(placement.rotation) + scaled.y * std::cos(placement.rotation);
    return onPage({50.0 + (placement.mirrored ? -x : x), 50.0 + y});
}

Shapes placedShapes(const Placement& placement, const std::string& entity) {
    const std::string reference = " 0=INSERT 2=B 20=50" + group(10, placement.mirrored ? -50.0 : 50.0) +
                                  group(41, placement.scale.x) + group(42, placement.scale.y) +
                                  group(50, placement.rotation * degrees) + (placement.mirrored ? " 230=-1" : "");
    PlotTarget target = tenfoldTarget();
    target.pageBox = target.pageBox.inflated(10000.0);
    return shapesOf(readGroups(section("BLOCKS", "0=BLOCK 2=B " + entity + " 0=ENDBLK") + drawingOf(reference)),
                    target);
}

std::string arcOf(double radius, double start, double end) {
    return "0=ARC" + group(40, radius) + group(50, start * degrees) + group(51, end * degrees);
}

std::string ellipseOf(double start, double end) {
    return "0=ELLIPSE 11=3 21=4 40=0.4" + group(41, start) + group(42, end);
}

TEST(Arcs, LieOnTheTrueCurveHoweverPlacedAndEndWithinOneTurn) {
    const Vec2 major{3, 4}, minor{-1.6, 1.2};
    const auto round = [](double radius, double start, double span) {
        return std::tuple{Vec2{radius, 0}, Vec2{0, radius}, start, span};
    };
    const auto flat = [&](double start, double span) {
        return std::tuple{major, minor, start, span};
    };
    const struct {
        const char* name;
        std::string entity;
        std::tuple<Vec2, Vec2, double, double> curve; ///< u·cos t + v·sin t, its start, and how far it runs
    } cases[] = {
        {"circle", "0=CIRCLE 40=5", round(5, 0, turn)},
        {"small arc", arcOf(5, 0.3, 1.234), round(5, 0.3, 0.934)},
        {"arc over zero", arcOf(10, 5.5, 1), round(10, 5.5, 1 + turn - 5.5)},
        {"angles of other turns", arcOf(9, -7, 20), round(9, -7, 27 - 4 * turn)},
        {"sliver", arcOf(15, 1, 1.0001), round(15, 1, 1e-4)},
        {"nearly a turn", arcOf(15, 0, turn - 0.01), round(15, 0, turn - 0.01)},
        {"equal angles", ellipseOf(1, 1), flat(1, turn)},
        {"six digits, rounded up", ellipseOf(0, 6.283186), flat(0, turn)},
        {"six digits, rounded down", ellipseOf(0, 6.283185), flat(0, turn)},
        {"360.0001 degrees", "0=ARC 40=5 50=0 51=360.0001", round(5, 0, turn)},
        {"359.9999 degrees", "0=ARC 40=5 50=0 51=359.9999", round(5, 0, turn)},
        {"clockwise turn", ellipseOf(6.283186, 0), flat(0, turn)},
        {"end a little before the start", ellipseOf(1, 1 - 1e-7), flat(1, turn)},
        {"tiny", ellipseOf(1, 1 + 2e-6), flat(1, 2e-6)},
        {"small over zero", ellipseOf(6.2831, 6.2831 - turn + 1e-3), flat(6.2831, 1e-3)},
        {"elliptic arc", ellipseOf(1, 4), flat(1, 3)},
    };
    constexpr double mostGap = 1.5; // a device unit for the renderer's whole radii and angles, the rest for flattening
    for (const auto& row : cases) {
        for (const Placement& placement : placements) {
            const auto [u, v, start, span] = row.curve;
            std::vector<Vec2> expected;
            for (int i = 0; i <= steps; ++i) {
                const double t = start + span * i / steps;
                expected.push_back(placed(placement, u * std::cos(t) + v * std::sin(t)));
            }
            const auto points = trace(placedShapes(placement, row.entity));
            EXPECT_LT(gap(points, expected), mostGap) << row.name << ", " << placement.name;
        }
    }
}

TEST(Arcs, GoToTheDeviceAsArcsWhereThatIsExact) {
    const auto kindOf = [](const std::string& entity) {
        const auto shapes = shapesOf(withEntities(entity));
        return shapes.empty() ? "nothing" : shapes[0].kind;
    };
    EXPECT_EQ(kindOf("0=CIRCLE 10=50 20=50 40=40"), "arc");
    EXPECT_EQ(kindOf("0=ARC 10=50 20=50 40=40 50=0 51=90"), "arc") << "whole sixteenths of a degree";
    EXPECT_EQ(kindOf("0=ARC 10=50 20=50 40=5 50=5.7 51=57.3"), "arc") << "small";
    EXPECT_EQ(kindOf("0=ARC 10=-100 20=-100 40=200 50=28.65 51=57.3"), "line") << "its end would miss";
    EXPECT_EQ(kindOf("0=CIRCLE 10=50 20=50 40=0.09"), "line") << "too small for whole radii";
    EXPECT_EQ(kindOf("0=CIRCLE 10=50 20=50 40=1e9"), "nothing") << "far off the page";
}

TEST(Splines, OfAnyDegreeThatFilesMayHaveFollowTheirPolynomial) {
    for (const int degree : {3, 15, 16, 20, NurbsCurve::maxDegree}) {
        std::string spline = "0=SPLINE 71=" + std::to_string(degree); // one span
        std::vector<Vec2> controls;
        for (int i = 0; i <= degree; ++i) {
            controls.push_back({10.0 + 80.0 * i / degree, i % 5 < 2 ? 5.0 : 95.0});
            spline += group(10, controls.back().x) + group(20, controls.back().y);
        }
        std::vector<Vec2> expected;
        for (int step = 0; step <= 1000; ++step) {
            const double t = step / 1000.0;
            double choices = 1.0; // of i among `degree`
            Vec2 p;
            for (int i = 0; i <= degree; ++i) {
                p = p + controls[static_cast<size_t>(i)] * (choices * std::pow(t, i) * std::pow(1.0 - t, degree - i));
                choices *= static_cast<double>(degree - i) / (i + 1);
            }
            expected.push_back(onPage(p));
        }
        const std::vector<Vec2> points = trace(shapesOf(withEntities(spline)));
        EXPECT_LT(gap(points, expected), 0.9) << degree << ": 0.1 and the rounding to whole units";
        EXPECT_LT(points.size(), 400U) << "flattened too finely, " << degree;
    }
}

TEST(Splines, ThroughFitPointsAreSmooth) {
    std::string spline = "0=SPLINE 70=1";
    std::vector<Vec2> fits;
    for (int i = 0; i < 16; ++i) {
        const double angle = (22.5 * i + (i % 2) * 7.5) / degrees;
        fits.push_back({50 + 40 * std::cos(angle), 50 + 40 * std::sin(angle)});
        spline += group(11, fits.back().x) + group(21, fits.back().y);
    }
    const auto points = trace(shapesOf(withEntities(spline)));
    for (const Vec2 p : points) {
        EXPECT_NEAR((p - Vec2{500, 500}).length(), 400.0, 1.7);
    }
    EXPECT_EQ(points.back(), points.front());
    for (const Vec2 fit : fits) {
        EXPECT_LT(distanceToPath(onPage(fit), points), 0.8);
    }
    // Of an open one through points 30, 60 and 20 apart, x is linear, and of y's second derivatives m and n at the
    // inner points 2 (30 + 60) m + 60 n = -9.6 and 60 m + 2 (60 + 20) n = 9.6.
    const double m = -9.6 * 220 / 25200, n = 9.6 * 240 / 25200;
    const auto open = trace(shapesOf(withEntities("0=SPLINE 11=5 21=50 11=23 21=74 11=59 21=26 11=71 21=42")));
    const Vec2 middles[] = {{14, 62 - 900 * m / 16}, {41, 50 - 3600 * (m + n) / 16}, {65, 34 - 400 * n / 16}};
    for (const Vec2 middle : middles) {
        EXPECT_LT(distanceToPath(onPage(middle), open), 0.8) << middle.x;
    }
}

} // namespace
} // namespace kelplot
