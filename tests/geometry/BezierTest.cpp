// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/EllipArc.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "geometry/ArcSweep.h"

using namespace KelDriver::Internal;

namespace {

constexpr double pi = 3.141592653589793;
constexpr double turn = 6.283185307179586;
constexpr double infinity = std::numeric_limits<double>::infinity();

std::vector<HT_BezierCurve> curvesOf(const HT_EllipArc& arc) {
    std::vector<HT_BezierCurve> curves(3); // dropped by the conversion
    HT_ConvertEllipArcToBezierCurves(arc, curves);
    return curves;
}

HT_Double_Point pointAt(const HT_EllipArc& arc, double t) {
    HT_Double_Point point;
    HT_Double_Point derivative;
    arc.calcEllipicArcParam(t, point, derivative);
    return point;
}

HT_Double_Point pointAt(const HT_BezierCurve& c, double t) {
    const double s = 1 - t;
    const double weights[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
    return {weights[0] * c.p0.x + weights[1] * c.p1.x + weights[2] * c.p2.x + weights[3] * c.p3.x,
            weights[0] * c.p0.y + weights[1] * c.p1.y + weights[2] * c.p2.y + weights[3] * c.p3.y};
}

void expectNear(const HT_Double_Point& actual, const HT_Double_Point& expected, double tolerance) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
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
        const std::vector<HT_BezierCurve> curves = curvesOf(arc);
        ASSERT_EQ(curves.size(), row.curves) << row.name;
        const double step = row.sweep / static_cast<double>(row.curves);
        for (size_t i = 0; i < curves.size(); ++i) {
            SCOPED_TRACE(row.name);
            const double t = row.start + step * static_cast<double>(i);
            expectNear(curves[i].p0, pointAt(arc, t), 1e-6);
            expectNear(pointAt(curves[i], 0.5), pointAt(arc, t + step / 2), 0.002 * arc.radiusX);
            expectNear(curves[i].p3, i + 1 < curves.size() ? curves[i + 1].p0 : pointAt(arc, row.end), 1e-6);
        }
    }
}

TEST(Bezier, QuarterCircleHasTheKnownControlPoints) {
    const std::vector<HT_BezierCurve> curves = curvesOf(HT_EllipArc({0, 0}, 1, 1, 0, 0, pi / 2));
    ASSERT_EQ(curves.size(), 1U);
    const double k = (std::sqrt(7.0) - 1) / 3; // sin(90°) (sqrt(4 + 3 tan²45°) - 1) / 3
    expectNear(curves[0].p0, {1, 0}, 1e-12);
    expectNear(curves[0].p1, {1, k}, 1e-12);
    expectNear(curves[0].p2, {k, 1}, 1e-12);
    expectNear(curves[0].p3, {0, 1}, 1e-12);
}

// The literal sum of turns, against which long backward sweeps are held.
double turnByTurn(double sweep) {
    while (sweep < 1e-10) {
        sweep += turn;
    }
    return sweep;
}

TEST(Bezier, SweepsUpToTheLimitsFollowTheRuleToTheLastBit) {
    const struct {
        const char* name;
        double sweep;
        double expected;
    } cases[] = {
        {"forward, many turns", 1e7, 1e7},
        {"forward, at the limit", 16777216 * (pi / 2), 16777216 * (pi / 2)},
        {"backward, many turns", -1e7, turnByTurn(-1e7)},
        {"backward, at the limit", -1e8, turnByTurn(-1e8)},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(positiveSweep(c.sweep), c.expected) << c.name;
    }
    EXPECT_EQ(curveCountFor(positiveSweep(16777216 * (pi / 2))), 16777216);
}

TEST(Bezier, HugeSweepsEndAndKeepTheirEnds) {
    for (const double end : {1e8, -1.1e8, 1e15, -1e15}) {
        const HT_EllipArc arc({0, 0}, 5, 3, 0, 0, end);
        const std::vector<HT_BezierCurve> curves = curvesOf(arc);
        ASSERT_FALSE(curves.empty()) << end;
        EXPECT_LE(curves.size(), 8U) << end;
        expectNear(curves.front().p0, pointAt(arc, 0), 1e-9);
        // The turn of the reduction is a double as well: its error grows with the number of turns.
        expectNear(curves.back().p3, pointAt(arc, end), std::fabs(end) * 1e-15);
    }
}

TEST(Bezier, UndefinedSweepsHaveNoCurves) {
    const double nan = std::nan("");
    const double ends[][2] = {{0, nan}, {nan, 0}, {0, infinity}, {0, -infinity}, {infinity, 0}, {infinity, infinity}};
    for (const auto& [start, end] : ends) {
        EXPECT_TRUE(curvesOf(HT_EllipArc({0, 0}, 5, 3, 0, start, end)).empty()) << start << " to " << end;
    }
}

} // namespace
