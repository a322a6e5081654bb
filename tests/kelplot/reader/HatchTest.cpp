#include <gtest/gtest.h>

#include <cmath>

#include "DrawingText.h"

namespace kelplot {
namespace {

const double pi = std::acos(-1.0);

const std::string head =
    groups({{0, "HATCH"}, {10, "0"}, {20, "0"}, {30, "6"}, {230, "-1"}, {2, "SOLID"}, {70, "1"}, {71, "1"}, {91, "1"}});
/// What follows the boundaries, with codes that mean other things before.
const std::string tail = groups({{97, "1"}, {330, "3F"}, {75, "0"}, {76, "1"}, {78, "1"}, {53, "45"}, {43, "1"}}) +
                         groups({{44, "2"}, {45, "3"}, {46, "4"}, {79, "0"}, {98, "1"}, {10, "99"}, {20, "99"}});

Hatch readHatch(const std::string& text) {
    const Entity entity = readOne(text);
    EXPECT_EQ(entity.extrusion, (Vec3{0, 0, -1}));
    const Hatch* const hatch = std::get_if<Hatch>(&entity.geometry);
    EXPECT_NE(hatch, nullptr);
    return hatch != nullptr ? *hatch : Hatch();
}

std::string polylineLoop(const char* flags) {
    return groups(
        {{92, flags}, {72, "1"}, {73, "1"}, {93, "2"}, {10, "1"}, {20, "2"}, {42, "1"}, {10, "3"}, {20, "2"}});
}

std::string line(const char* x1, const char* y1, const char* x2, const char* y2) {
    return groups({{72, "1"}, {10, x1}, {20, y1}, {11, x2}, {21, y2}});
}

TEST(HatchBoundary, PolylineKeepsBulgesAndFlags) {
    const Hatch hatch = readHatch(head + polylineLoop("18") + polylineLoop("10") + tail);
    EXPECT_TRUE(hatch.solid);
    EXPECT_EQ(hatch.elevation, 6.0);
    ASSERT_EQ(hatch.loops.size(), 2u);
    const HatchLoop& loop = hatch.loops[0];
    EXPECT_TRUE(loop.edges.empty());
    ASSERT_EQ(loop.polyline.size(), 2u);
    EXPECT_EQ(loop.polyline[0].position, (Vec3{1, 2, 0}));
    EXPECT_EQ(loop.polyline[0].bulge, 1.0);
    EXPECT_EQ(loop.polyline[1].bulge, 0.0);
    EXPECT_FALSE(loop.textBox);
    EXPECT_TRUE(hatch.loops[1].textBox);
}

TEST(HatchBoundary, LinesAndArcsFollowOneAnother) {
    const std::string arc = groups({{72, "2"}, {10, "5"}, {20, "1"}, {40, "2"}, {50, "10"}, {51, "100"}});
    const Hatch hatch = readHatch(head + groups({{92, "1"}, {93, "3"}}) + line("0", "0", "4", "0") + arc +
                                  groups({{73, "1"}}) + arc + groups({{73, "0"}}) + tail);
    ASSERT_EQ(hatch.loops.size(), 1u);
    ASSERT_EQ(hatch.loops[0].edges.size(), 3u);
    EXPECT_EQ(std::get<HatchLine>(hatch.loops[0].edges[0]).end, (Vec2{4, 0}));
    const auto& left = std::get<HatchArc>(hatch.loops[0].edges[1]);
    EXPECT_EQ(left.center, (Vec2{5, 1}));
    EXPECT_EQ(left.radius, 2.0);
    EXPECT_TRUE(left.counterClockwise);
    EXPECT_DOUBLE_EQ(left.startAngle, pi / 18);
    EXPECT_DOUBLE_EQ(left.endAngle, 10 * pi / 18);
    // Clockwise angles are mirrored at the x axis: from -100 to -10 degrees.
    const auto& right = std::get<HatchArc>(hatch.loops[0].edges[2]);
    EXPECT_FALSE(right.counterClockwise);
    EXPECT_DOUBLE_EQ(right.startAngle, 26 * pi / 18);
    EXPECT_DOUBLE_EQ(right.endAngle, 35 * pi / 18);
}

TEST(HatchBoundary, EllipseAnglesBecomeEccentric) {
    const std::string ellipse = groups({{72, "3"}, {10, "1"}, {20, "1"}, {11, "4"}, {21, "0"}, {40, "0.5"}});
    const Hatch hatch =
        readHatch(head + groups({{92, "1"}, {93, "2"}}) + ellipse + groups({{50, "45"}, {51, "405"}, {73, "1"}}) +
                  ellipse + groups({{50, "0"}, {51, "90"}, {73, "0"}}) + tail);
    ASSERT_EQ(hatch.loops.at(0).edges.size(), 2u);
    const auto& whole = std::get<HatchEllipse>(hatch.loops[0].edges[0]);
    EXPECT_EQ(whole.majorAxis, (Vec2{4, 0}));
    // The point seen at 45 degrees from the centre of an ellipse half as high as wide.
    EXPECT_NEAR(whole.startParam, std::atan(2.0), 1e-12);
    EXPECT_NEAR(whole.endParam, std::atan(2.0) + 2 * pi, 1e-12);
    const auto& quarter = std::get<HatchEllipse>(hatch.loops[0].edges[1]);
    EXPECT_NEAR(quarter.startParam, 1.5 * pi, 1e-12);
    EXPECT_NEAR(quarter.endParam, 2 * pi, 1e-12);
    EXPECT_FALSE(quarter.counterClockwise);
}

TEST(HatchBoundary, SplineEndsWhereTheNextEdgeBegins) {
    const std::string spline = groups({{72, "4"}, {94, "1"}, {73, "1"}, {74, "0"}, {95, "4"}, {96, "2"}}) +
                               groups({{40, "0"}, {40, "0"}, {40, "1"}, {40, "1"}, {10, "1"}, {20, "2"}, {42, "1"}}) +
                               groups({{10, "3"}, {20, "4"}, {42, "2"}, {97, "0"}});
    const Hatch hatch = readHatch(head + groups({{92, "1"}, {93, "2"}}) + spline + line("3", "4", "1", "2") + tail);
    ASSERT_EQ(hatch.loops.at(0).edges.size(), 2u);
    const Spline& curve = std::get<HatchSpline>(hatch.loops[0].edges[0]).curve;
    EXPECT_EQ(curve.degree, 1);
    EXPECT_EQ(curve.knots, (std::vector<double>{0, 0, 1, 1}));
    EXPECT_EQ(curve.weights, (std::vector<double>{1, 2}));
    EXPECT_EQ(curve.controlPoints, (std::vector<Vec3>{{1, 2, 0}, {3, 4, 0}}));
    EXPECT_TRUE(std::holds_alternative<HatchLine>(hatch.loops[0].edges[1]));
}

TEST(HatchBoundary, StyleFollowsTheLoops) {
    const std::pair<const char*, HatchStyle> cases[] = {
        {"0", HatchStyle::normal}, {"1", HatchStyle::outer}, {"2", HatchStyle::ignore}, {"7", HatchStyle::normal}};
    for (const auto& [number, style] : cases) {
        std::string text = head + polylineLoop("2") + tail;
        text.replace(text.find("75\n0"), 4, std::string("75\n") + number);
        EXPECT_EQ(readHatch(text).style, style) << number;
    }
}

TEST(HatchBoundary, PatternIsNotSolid) {
    std::string pattern = head + polylineLoop("2") + tail;
    pattern.replace(pattern.find("70\n1"), 4, "70\n0");
    EXPECT_FALSE(readHatch(pattern).solid);
}

} // namespace
} // namespace kelplot
