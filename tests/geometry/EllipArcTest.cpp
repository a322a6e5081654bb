// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/EllipArc.h"

#include <cfloat>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

constexpr double pi = 3.141592653589793;
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(EllipArc, PointLiesOnTheTurnedEllipse) {
    const HT_EllipArc arc({10, 20}, 5, 3, 0.7, 0, 1);
    for (int step = -20; step <= 20; ++step) {
        const double t = 0.37 * step;
        HT_Double_Point point;
        HT_Double_Point derivative;
        arc.calcEllipicArcParam(t, point, derivative);
        const double dx = point.x - 10;
        const double dy = point.y - 20;
        const double u = dx * std::cos(0.7) + dy * std::sin(0.7);
        const double v = -dx * std::sin(0.7) + dy * std::cos(0.7);
        EXPECT_NEAR(u * u / 25 + v * v / 9, 1.0, 1e-12) << t;
        EXPECT_NEAR(std::atan2(v / 3, u / 5), std::atan2(std::sin(t), std::cos(t)), 1e-12) << t;

        constexpr double h = 1e-6;
        HT_Double_Point before;
        HT_Double_Point after;
        HT_Double_Point unused;
        arc.calcEllipicArcParam(t - h, before, unused);
        arc.calcEllipicArcParam(t + h, after, unused);
        EXPECT_NEAR(derivative.x, (after.x - before.x) / (2 * h), 1e-6) << t;
        EXPECT_NEAR(derivative.y, (after.y - before.y) / (2 * h), 1e-6) << t;
    }
}

TEST(EllipArc, EndPointsAreMirroredForDevices) {
    const HT_EllipArc arc({10, 20}, 5, 3, pi / 2, 0, pi / 2);
    EXPECT_NEAR(arc.startPoint().x, 10, 1e-12);
    EXPECT_NEAR(arc.startPoint().y, 15, 1e-12); // above the centre where y grows downwards
    EXPECT_NEAR(arc.endPoint().x, 7, 1e-12);
    EXPECT_NEAR(arc.endPoint().y, 20, 1e-12);
}

TEST(EllipArc, AngleFromParamIsExactAtTheEndsOfATurn) {
    for (const double t : {0.0, 1e-10, -1e-10, 1e-12}) {
        EXPECT_EQ(HT_EllipArc::angleFromParam(t, 0.5), 0.0) << t;
        EXPECT_EQ(HT_EllipArc::angleFromParam(6.283185307179586 + t * 0.9, 0.5), 6.283185307179586) << t;
    }
    EXPECT_NE(HT_EllipArc::angleFromParam(2e-10, 0.5), 0.0);
    EXPECT_DOUBLE_EQ(HT_EllipArc::angleFromParam(3 * pi / 2, 1.0), 3 * pi / 2);
}

TEST(EllipArc, AngleFromParamStaysOnTheTurn) {
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

TEST(EllipArc, GdiBoxRoundsEachPartAndIsNotTurned) {
    const struct {
        const char* name;
        HT_Double_Point center;
        double radiusX;
        double radiusY;
        tagRECT expected;
    } cases[] = {
        {"halves away from zero", {10.5, -10.5}, 2.5, 4.4, {8, -15, 14, -7}},
        {"negative radius turns the box over", {0, 0}, -2.5, 1, {3, -1, -3, 1}},
        {"far centre saturates, then the sum wraps", {3e9, 0}, 10, 1, {2147483637, -1, -2147483639, 1}},
        {"not a number counts as zero", {std::nan(""), 5}, std::nan(""), 1, {0, 4, 0, 6}},
    };
    for (const auto& c : cases) {
        tagRECT rect;
        tagXFORM xform;
        HT_EllipArc(c.center, c.radiusX, c.radiusY, 1.0, 0, 1).calcGdiEllipseParam(rect, xform);
        EXPECT_EQ(rect.left, c.expected.left) << c.name;
        EXPECT_EQ(rect.top, c.expected.top) << c.name;
        EXPECT_EQ(rect.right, c.expected.right) << c.name;
        EXPECT_EQ(rect.bottom, c.expected.bottom) << c.name;
    }
}

HT_Double_Point mapped(const tagXFORM& m, double x, double y) {
    return {x * m.eM11 + y * m.eM21 + m.eDx, x * m.eM12 + y * m.eM22 + m.eDy};
}

TEST(EllipArc, GdiTransformTurnsAboutTheCentre) {
    tagRECT rect;
    tagXFORM xform;
    HT_EllipArc({100, 50}, 9, 9, 0.7, 0, 1).calcGdiEllipseParam(rect, xform);
    for (const int radius : {0, 10}) { // counter-clockwise on the page
        EXPECT_NEAR(mapped(xform, 100 + radius, 50).x, 100 + radius * std::cos(0.7), 1e-4);
        EXPECT_NEAR(mapped(xform, 100 + radius, 50).y, 50 - radius * std::sin(0.7), 1e-4);
    }

    HT_EllipArc({1e300, 0}, 9, 9, pi, 0, 1).calcGdiEllipseParam(rect, xform);
    EXPECT_EQ(xform.eDx, FLT_MAX);
}

TEST(EllipArc, GdiRadialPointsGiveTheDirections) {
    const HT_EllipArc arc({1000, 2000}, 400, 100, 0.3, pi / 4, pi);
    tagRECT rect;
    tagPOINT start;
    tagPOINT end;
    tagXFORM xform;
    arc.calcGdiArcParam(rect, start, end, xform);
    // (400 cos 45°, 100 sin 45°) lies in the direction (4, 1); both points lie 400 from the centre.
    EXPECT_EQ(start.x, 1000 + std::lround(400 * 4 / std::sqrt(17)));
    EXPECT_EQ(start.y, 2000 - std::lround(400 * 1 / std::sqrt(17)));
    EXPECT_EQ(end.x, 600);
    EXPECT_EQ(end.y, 2000);
    EXPECT_EQ(rect.left, 600);
    EXPECT_EQ(rect.bottom, 2100);
}

TEST(EllipArc, DegenerateArcsAreHarmless) {
    for (const double value : {0.0, infinity, -infinity, std::nan(""), 1e300}) {
        tagRECT rect;
        tagPOINT start;
        tagPOINT end;
        tagXFORM xform;
        HT_EllipArc({1, 2}, value, 3, value, value, 1).calcGdiArcParam(rect, start, end, xform);
        EXPECT_EQ(rect.top, -1) << value;
        EXPECT_EQ(rect.bottom, 5) << value;
    }
}

} // namespace
