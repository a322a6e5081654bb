// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/EllipArc.h"

#include <cfloat>
#include <cmath>
#include <complex>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "geometry/ArcSweep.h"

using namespace KelDriver::Internal;

namespace {

constexpr double pi = 3.141592653589793;
constexpr double turn = 6.283185307179586;
constexpr double infinity = std::numeric_limits<double>::infinity();
const double notANumber = std::nan("");

using Complex = std::complex<double>; // a place or a direction; turning is multiplying

Complex complex(const HT_Double_Point& point) {
    return {point.x, point.y};
}

/// The way from the centre to the true ellipse's point.
Complex wayTo(const HT_EllipArc& arc, double t) {
    return std::polar(1.0, arc.rotation) * Complex(arc.radiusX * std::cos(t), arc.radiusY * std::sin(t));
}

void expectNear(Complex actual, Complex expected, double tolerance, const char* name) {
    EXPECT_LE(std::abs(actual - expected), tolerance) << name << ": " << actual << " instead of " << expected;
}

TEST(EllipArc, PointsLieOnTheTurnedEllipse) {
    for (int step = -20; step <= 20; ++step) {
        const double t = 0.37 * step;
        const HT_EllipArc arc({10, 20}, 5, 3, 0.7, t, t + 1);
        HT_Double_Point point;
        HT_Double_Point derivative;
        arc.calcEllipicArcParam(t, point, derivative);
        expectNear(complex(point), Complex(10, 20) + wayTo(arc, t), 1e-12, "point");
        expectNear(complex(derivative), std::polar(1.0, 0.7) * Complex(-5 * std::sin(t), 3 * std::cos(t)), 1e-12,
                   "derivative");
        // Mirrored for devices, whose y grows downwards.
        expectNear(complex(arc.startPoint()), Complex(10, 20) + std::conj(wayTo(arc, t)), 1e-12, "start");
        expectNear(complex(arc.endPoint()), Complex(10, 20) + std::conj(wayTo(arc, t + 1)), 1e-12, "end");
    }
}

TEST(EllipArc, AngleFromParamStaysOnTheTurnAndIsExactAtItsEnds) {
    for (const double t : {0.0, 1e-10, -1e-10, 1e-12}) {
        EXPECT_EQ(HT_EllipArc::angleFromParam(t, 0.5), 0.0) << t;
        EXPECT_EQ(HT_EllipArc::angleFromParam(turn + t * 0.9, 0.5), turn) << t;
    }
    EXPECT_NE(HT_EllipArc::angleFromParam(2e-10, 0.5), 0.0);
    EXPECT_DOUBLE_EQ(HT_EllipArc::angleFromParam(3 * pi / 2, 1.0), 3 * pi / 2);
    for (const double ratio : {0.01, 0.5, 1.0, 2.0, 100.0}) {
        for (int step = -200; step <= 200; ++step) {
            const double t = 0.173 * step;
            const double angle = HT_EllipArc::angleFromParam(t, ratio);
            EXPECT_LT(std::fabs(angle - t), pi / 2) << "t " << t << ", ratio " << ratio;
            EXPECT_NEAR(std::sin(angle) * std::cos(t), std::cos(angle) * std::sin(t) * ratio,
                        1e-9 * std::max(1.0, ratio))
                << "t " << t << ", ratio " << ratio;
        }
    }
}

std::vector<int32_t> sidesOf(const tagRECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

TEST(EllipArc, GdiBoxRoundsEachPartAndIsNotTurned) {
    const struct {
        const char* name;
        HT_Double_Point center;
        double radiusX;
        double radiusY;
        std::vector<int32_t> sides;
    } cases[] = {
        {"halves away from zero", {10.5, -10.5}, 2.5, 4.4, {8, -15, 14, -7}},
        {"negative radius turns the box over", {0, 0}, -2.5, 1, {3, -1, -3, 1}},
        {"far centre saturates, then the sum wraps", {3e9, 0}, 10, 1, {2147483637, -1, -2147483639, 1}},
        {"not a number counts as zero", {notANumber, 5}, notANumber, 1, {0, 4, 0, 6}},
        {"infinite", {1, 2}, infinity, 3, {-2147483646, -1, INT32_MIN, 5}},
        {"no width", {1, 2}, 0, 3, {1, -1, 1, 5}},
    };
    for (const auto& c : cases) {
        tagRECT rect;
        tagPOINT ends[2]; // of a degenerate arc they may lie anywhere
        tagXFORM xform;
        HT_EllipArc(c.center, c.radiusX, c.radiusY, 1.0, c.radiusX, 1).calcGdiArcParam(rect, ends[0], ends[1], xform);
        EXPECT_EQ(sidesOf(rect), c.sides) << c.name;
    }
}

TEST(EllipArc, GdiTransformTurnsAboutTheCentre) {
    tagRECT rect;
    tagXFORM m;
    HT_EllipArc({100, 50}, 9, 9, 0.7, 0, 1).calcGdiEllipseParam(rect, m);
    for (const Complex way : {Complex(0, 0), Complex(10, 0), Complex(0, 10)}) {
        const double x = 100 + way.real();
        const double y = 50 + way.imag();
        const Complex mapped(x * m.eM11 + y * m.eM21 + m.eDx, x * m.eM12 + y * m.eM22 + m.eDy);
        expectNear(mapped, Complex(100, 50) + way * std::polar(1.0, -0.7), 1e-4, "counter-clockwise on the page");
    }
    HT_EllipArc({1e300, 0}, 9, 9, pi, 0, 1).calcGdiEllipseParam(rect, m);
    EXPECT_EQ(m.eDx, FLT_MAX);
}

TEST(EllipArc, GdiRadialPointsGiveTheDirections) {
    tagRECT rect;
    tagPOINT ends[2];
    tagXFORM xform;
    HT_EllipArc({1000, 2000}, 400, 100, 0.3, pi / 4, pi).calcGdiArcParam(rect, ends[0], ends[1], xform);
    // (400 cos 45°, 100 sin 45°) lies in the direction (4, 1); both points lie 400 from the centre.
    EXPECT_EQ(ends[0].x, 1000 + std::lround(400 * 4 / std::sqrt(17)));
    EXPECT_EQ(ends[0].y, 2000 - std::lround(400 * 1 / std::sqrt(17)));
    EXPECT_TRUE(ends[1].x == 600 && ends[1].y == 2000);
}

std::vector<HT_BezierCurve> curvesOf(const HT_EllipArc& arc) {
    std::vector<HT_BezierCurve> curves(3); // dropped by the conversion
    HT_ConvertEllipArcToBezierCurves(arc, curves);
    return curves;
}

TEST(Bezier, CurvesAreContiguousAndOnTheEllipse) {
    const struct {
        const char* name;
        double start;
        double end;
        size_t curves;
        double sweep; ///< that the curves cover
    } rows[] = {
        {"quarter", 0, pi / 2, 1, pi / 2},
        {"just over a quarter", 0, pi / 2 + 1e-6, 2, pi / 2 + 1e-6},
        {"equal ends", 1, 1, 4, turn},
        {"a sweep below the tolerance goes on a turn", 1, 1 + 5e-11, 5, turn + 5e-11},
        {"backwards goes the long way", 1, 0.5, 4, turn - 0.5},
        {"several turns back", 0.5, 0.5 - 5 * turn + 1, 1, 1},
        {"a hundred turns", 0, 99.9 * turn, 400, 99.9 * turn},
    };
    for (const auto& row : rows) {
        const HT_EllipArc arc({10, -20}, 5, 3, 0.7, row.start, row.end);
        const auto placeAt = [&](double t) {
            return Complex(10, -20) + wayTo(arc, t);
        };
        const std::vector<HT_BezierCurve> curves = curvesOf(arc);
        ASSERT_EQ(curves.size(), row.curves) << row.name;
        const double step = row.sweep / static_cast<double>(row.curves);
        double t = row.start;
        for (const HT_BezierCurve& c : curves) {
            const Complex middle = (complex(c.p0) + 3.0 * complex(c.p1) + 3.0 * complex(c.p2) + complex(c.p3)) / 8.0;
            expectNear(complex(c.p0), placeAt(t), 1e-6, row.name);
            expectNear(middle, placeAt(t + step / 2), 0.01, row.name);
            t += step;
            expectNear(complex(c.p3), placeAt(t), 1e-6, row.name);
        }
    }
}

TEST(Bezier, QuarterCircleHasTheKnownControlPoints) {
    const HT_BezierCurve curve = curvesOf(HT_EllipArc({0, 0}, 1, 1, 0, 0, pi / 2)).at(0);
    const double k = (std::sqrt(7.0) - 1) / 3; // sin(90°) (sqrt(4 + 3 tan²45°) - 1) / 3
    expectNear(complex(curve.p1), {1, k}, 1e-12, "first");
    expectNear(complex(curve.p2), {k, 1}, 1e-12, "second");
}

// The literal sum of turns, against which long backward sweeps are held.
double turnByTurn(double sweep) {
    while (sweep < 1e-10) {
        sweep += turn;
    }
    return sweep;
}

TEST(Bezier, LongSweepsFollowTheRuleToTheLastBit) {
    const double longest = 16777216 * (pi / 2);
    EXPECT_EQ(curveCountFor(longest), 16777216);
    for (const double sweep : {1e7, longest, -1e7, -1e8}) { // up to the limits
        EXPECT_EQ(positiveSweep(sweep), turnByTurn(sweep)) << sweep;
    }
    for (const double end : {1e8, -1.1e8, 1e15, -1e15}) {
        const HT_EllipArc arc({0, 0}, 5, 3, 0, 0, end);
        const std::vector<HT_BezierCurve> curves = curvesOf(arc);
        ASSERT_FALSE(curves.empty()) << end;
        EXPECT_LE(curves.size(), 8U) << end;
        expectNear(complex(curves.front().p0), wayTo(arc, 0), 1e-9, "start");
        // The turn of the reduction is a double as well: its error grows with the number of turns.
        expectNear(complex(curves.back().p3), wayTo(arc, end), std::fabs(end) * 1e-15, "end");
    }
    const double ends[][2] = {{0, notANumber}, {notANumber, 0}, {0, infinity}, {-infinity, 0}, {infinity, infinity}};
    for (const auto& [start, end] : ends) {
        EXPECT_TRUE(curvesOf(HT_EllipArc({0, 0}, 5, 3, 0, start, end)).empty()) << start << " to " << end;
    }
}

} // namespace
