#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

#include "DrawingText.h"

namespace kelplot {
namespace {

constexpr Vec3 up{0, 0, 1};
constexpr Vec3 down{0, 0, -1};
const double pi = std::acos(-1.0);

const std::string downwards = groups({{210, "0"}, {220, "0"}, {230, "-1"}});

TEST(SimpleEntity, PointAndLineAreInTheWorld) {
    const Entity point = readOne(groups({{0, "POINT"}, {10, "1"}, {20, "2"}, {30, "3"}}) + downwards);
    EXPECT_EQ(std::get<PointEntity>(point.geometry).position, (Vec3{1, 2, 3}));
    EXPECT_EQ(point.extrusion, up);
    const Entity line = readOne(groups({{0, "3DLINE"}, {10, "1"}, {20, "2"}, {30, "3"}, {11, "4"}}) + downwards);
    EXPECT_EQ(std::get<Line>(line.geometry).start, (Vec3{1, 2, 3}));
    EXPECT_EQ(std::get<Line>(line.geometry).end, (Vec3{4, 0, 0}));
    EXPECT_EQ(line.extrusion, up);
}

TEST(SimpleEntity, CircleAndArcAreInTheirPlane) {
    const Entity circle = readOne(groups({{0, "CIRCLE"}, {10, "1"}, {20, "2"}, {40, "5"}}) + downwards);
    EXPECT_EQ(std::get<Circle>(circle.geometry).center, (Vec3{1, 2, 0}));
    EXPECT_EQ(std::get<Circle>(circle.geometry).radius, 5.0);
    EXPECT_EQ(circle.extrusion, down);
    const Entity entity = readOne(groups({{0, "ARC"}, {40, "5"}, {50, "90"}, {51, "180"}}));
    const Arc& arc = std::get<Arc>(entity.geometry);
    EXPECT_DOUBLE_EQ(arc.startAngle, pi / 2);
    EXPECT_DOUBLE_EQ(arc.endAngle, pi);
}

TEST(SimpleEntity, EllipseKeepsItsTurningSense) {
    const Entity whole = readOne(groups({{0, "ELLIPSE"}, {10, "1"}, {11, "0"}, {21, "4"}, {40, "0.5"}}) + downwards);
    const Ellipse& ellipse = std::get<Ellipse>(whole.geometry);
    EXPECT_EQ(ellipse.center, (Vec3{1, 0, 0}));
    EXPECT_EQ(ellipse.majorAxis, (Vec3{0, 4, 0}));
    EXPECT_EQ(ellipse.ratio, 0.5);
    EXPECT_EQ(ellipse.startParam, 0.0);
    EXPECT_DOUBLE_EQ(ellipse.endParam, 2 * pi);
    EXPECT_EQ(whole.extrusion, down);
}

TEST(SimpleEntity, WithoutSizeIsDropped) {
    const std::string none = groups({{0, "CIRCLE"}, {40, "0"}}) + groups({{0, "CIRCLE"}, {40, "-3"}}) +
                             groups({{0, "ARC"}, {40, "nan"}, {51, "90"}}) + groups({{0, "ELLIPSE"}, {40, "1"}}) +
                             groups({{0, "LWPOLYLINE"}, {90, "0"}}) + groups({{0, "HATCH"}, {91, "0"}});
    EXPECT_TRUE(readText(drawingOf(none)).modelSpace.empty());
}

TEST(SimpleEntity, BadNumbersCountAsNone) {
    const Entity line = readOne(groups({{0, "LINE"}, {10, "inf"}, {20, "x"}, {11, "1e400"}, {21, "7"}}));
    EXPECT_EQ(std::get<Line>(line.geometry).start, Vec3());
    EXPECT_EQ(std::get<Line>(line.geometry).end, (Vec3{0, 7, 0}));
    const Entity flat = readOne(groups({{0, "CIRCLE"}, {40, "1"}, {210, "0"}, {220, "nan"}, {230, "0"}}));
    EXPECT_EQ(flat.extrusion, up);
}

const std::string fourCorners =
    groups({{10, "0"}, {20, "0"}, {11, "4"}, {21, "0"}, {12, "0"}, {22, "3"}, {13, "4"}, {23, "3"}});
const std::string threeCorners = groups({{10, "0"}, {20, "0"}, {11, "4"}, {21, "0"}, {12, "1"}, {22, "3"}});

TEST(Area, CornersGoAboutIt) {
    for (const char* type : {"SOLID", "TRACE"}) {
        const Entity entity = readOne(groups({{0, type}}) + fourCorners + downwards);
        const auto expected = std::array<Vec3, 4>{Vec3{0, 0, 0}, Vec3{4, 0, 0}, Vec3{4, 3, 0}, Vec3{0, 3, 0}};
        EXPECT_EQ(std::get<Solid>(entity.geometry).corners, expected) << type;
        EXPECT_EQ(entity.extrusion, down);
    }
}

TEST(Area, MissingFourthCornerIsTheThird) {
    const Entity solid = readOne(groups({{0, "SOLID"}}) + threeCorners);
    EXPECT_EQ(std::get<Solid>(solid.geometry).corners[2], (Vec3{1, 3, 0}));
    EXPECT_EQ(std::get<Solid>(solid.geometry).corners[3], (Vec3{1, 3, 0}));
}

TEST(Face, KnowsItsHiddenEdges) {
    const Entity entity = readOne(groups({{0, "3DFACE"}}) + fourCorners + groups({{70, "5"}}) + downwards);
    const Face3d& face = std::get<Face3d>(entity.geometry);
    EXPECT_EQ(face.corners[2], (Vec3{0, 3, 0}));
    EXPECT_EQ(face.corners[3], (Vec3{4, 3, 0}));
    EXPECT_EQ(face.edgeVisible, (std::array<bool, 4>{false, true, false, true}));
    EXPECT_EQ(entity.extrusion, up);
}

TEST(BlockReference, ReadsArraysAndDefaults) {
    const Entity plain = readOne(groups({{0, "INSERT"}, {2, "B"}, {10, "1"}, {20, "2"}}));
    const Insert& insert = std::get<Insert>(plain.geometry);
    EXPECT_EQ(insert.scale, (Vec3{1, 1, 1}));
    EXPECT_EQ(insert.columns, 1);
    EXPECT_EQ(insert.rows, 1);
    const Entity array = readOne(groups(
        {{0, "INSERT"}, {2, "B"}, {41, "-2"}, {43, "0.5"}, {50, "90"}, {70, "3"}, {71, "-4"}, {44, "10"}, {45, "20"}}));
    const Insert& copies = std::get<Insert>(array.geometry);
    EXPECT_EQ(copies.scale, (Vec3{-2, 1, 0.5}));
    EXPECT_DOUBLE_EQ(copies.rotation, pi / 2);
    EXPECT_EQ(copies.columns, 3);
    EXPECT_EQ(copies.rows, 1);
    EXPECT_EQ(copies.columnSpacing, 10.0);
    EXPECT_EQ(copies.rowSpacing, 20.0);
}

TEST(DimensionEntity, RefersToItsBlock) {
    for (const char* type : {"DIMENSION", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION"}) {
        const Drawing drawing =
            readText(drawingOf(groups({{0, type}, {2, "*D1"}, {10, "9"}, {3, "STYLE"}, {70, "33"}}) + downwards));
        ASSERT_EQ(drawing.modelSpace.size(), 1u) << type;
        const Insert& insert = std::get<Insert>(drawing.modelSpace.front().geometry);
        ASSERT_LT(insert.block, drawing.blocks.size());
        EXPECT_EQ(drawing.blocks[insert.block].name, "*D1");
        EXPECT_EQ(insert.position, Vec3());
        EXPECT_EQ(drawing.modelSpace.front().extrusion, up);
    }
    const Drawing without = readText(drawingOf(groups({{0, "DIMENSION"}, {10, "9"}})));
    EXPECT_TRUE(without.modelSpace.empty());
    EXPECT_EQ(without.dimensionsWithoutBlock, 1U);
}

/// A cubic curve with four control points and these knots, of one digit each.
std::string cubic(const std::string& knots) {
    std::string text = groups({{0, "SPLINE"}, {70, "8"}, {71, "3"}, {74, "0"}});
    for (const char knot : knots) {
        text += groups({{40, std::string(1, knot)}});
    }
    for (int i = 0; i < 4; ++i) {
        text += groups({{10, std::to_string(i)}, {20, "1"}, {30, "2"}});
    }
    return text;
}

TEST(SplineEntity, KeepsWhatIsSound) {
    const Entity entity = readOne(cubic("00001111") + groups({{41, "1"}, {41, "2"}, {41, "2"}, {41, "1"}}) + downwards);
    const Spline& spline = std::get<Spline>(entity.geometry);
    EXPECT_EQ(spline.degree, 3);
    EXPECT_EQ(spline.knots, (std::vector<double>{0, 0, 0, 0, 1, 1, 1, 1}));
    EXPECT_EQ(spline.weights, (std::vector<double>{1, 2, 2, 1}));
    ASSERT_EQ(spline.controlPoints.size(), 4u);
    EXPECT_EQ(spline.controlPoints[3], (Vec3{3, 1, 2}));
    EXPECT_EQ(entity.extrusion, up);
}

struct SplineCase {
    const char* name;
    std::string text;
    int degree;
    std::size_t controlPoints;
    std::size_t fitPoints;
    std::vector<double> knots;
};

std::ostream& operator<<(std::ostream& stream, const SplineCase& row) {
    return stream << row.name;
}

class RepairedSpline : public ::testing::TestWithParam<SplineCase> {};

TEST_P(RepairedSpline, CanBeEvaluated) {
    const Entity entity = readOne(GetParam().text);
    const Spline& spline = std::get<Spline>(entity.geometry);
    EXPECT_EQ(spline.degree, GetParam().degree);
    EXPECT_EQ(spline.controlPoints.size(), GetParam().controlPoints);
    EXPECT_EQ(spline.fitPoints.size(), GetParam().fitPoints);
    EXPECT_EQ(spline.knots, GetParam().knots);
    EXPECT_TRUE(spline.weights.empty());
}

const std::string twoFitPoints = groups({{11, "0"}, {21, "0"}, {11, "5"}, {21, "5"}});
const std::vector<double> clamped{0, 0, 0, 0, 1, 1, 1, 1};

INSTANTIATE_TEST_SUITE_P(
    Splines, RepairedSpline,
    ::testing::Values(
        SplineCase{"no knots", cubic(""), 3, 4, 0, clamped},
        SplineCase{"falling knots", cubic("00001011"), 3, 4, 0, clamped},
        SplineCase{"knots without a span", cubic("11111111"), 3, 4, 0, clamped},
        SplineCase{"negative weight", cubic("00001111") + groups({{41, "1"}, {41, "-1"}, {41, "1"}}), 3, 4, 0, clamped},
        SplineCase{"degree beyond reason", cubic("00001111") + groups({{71, "2000000"}}), 3, 4, 0, clamped},
        SplineCase{"too few points for the degree", cubic("") + groups({{71, "5"}}), 3, 4, 0, clamped},
        SplineCase{"linear", cubic("") + groups({{71, "1"}}), 1, 4, 0, {0, 0, 1, 2, 3, 3}},
        SplineCase{"fit points instead", cubic("") + twoFitPoints, 3, 0, 2, {}}));

struct AttributeCase {
    const char* name;
    std::string text;
    Colour colour;
    LineWeight weight;
    double lineTypeScale;
    bool visible;
};

std::ostream& operator<<(std::ostream& stream, const AttributeCase& row) {
    return stream << row.name;
}

class EntityAttributes : public ::testing::TestWithParam<AttributeCase> {};

TEST_P(EntityAttributes, AreReadForEveryFamily) {
    // One that the DXF library reads, and one that is read from its groups.
    for (const std::string& entity :
         {groups({{0, "LINE"}, {11, "1"}}), groups({{0, "LWPOLYLINE"}, {10, "1"}, {20, "1"}})}) {
        const Attributes attributes = readOne(entity + GetParam().text).attributes;
        EXPECT_EQ(attributes.colour.kind, GetParam().colour.kind);
        EXPECT_EQ(attributes.colour.value, GetParam().colour.value);
        EXPECT_EQ(attributes.lineWeight, GetParam().weight);
        EXPECT_EQ(attributes.lineTypeScale, GetParam().lineTypeScale);
        EXPECT_EQ(attributes.visible, GetParam().visible);
    }
}

TEST(EntityOpacity, IsReadFromItsKindAndValue) {
    const struct {
        const char* name;
        const char* number;
        Opacity expected;
    } rows[] = {
        {"by layer", "0", opacityByLayer},
        {"by block", "16777216", opacityByBlock},
        {"own", "33554534", 102},
        {"own, invisible", "33554432", 0},
        {"kind unknown", "50331750", opacityByLayer},
        {"negative", "-1", opacityByLayer},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(readOne(groups({{0, "LINE"}, {11, "1"}, {440, row.number}})).attributes.opacity, row.expected)
            << row.name;
    }
}

using Kind = Colour::Kind;

INSTANTIATE_TEST_SUITE_P(
    Attributes, EntityAttributes,
    ::testing::Values(
        AttributeCase{"none", "", {Kind::byLayer, 0}, lineWeightByLayer, 1, true},
        AttributeCase{"by block", groups({{62, "0"}, {370, "-2"}}), {Kind::byBlock, 0}, lineWeightByBlock, 1, true},
        AttributeCase{"by layer", groups({{62, "256"}, {370, "-1"}}), {Kind::byLayer, 0}, lineWeightByLayer, 1, true},
        AttributeCase{"numbers", groups({{62, "3"}, {370, "50"}, {48, "2.5"}}), {Kind::index, 3}, 50, 2.5, true},
        AttributeCase{"true colour wins",
                      groups({{420, "1193046"}, {62, "3"}}),
                      {Kind::trueColour, 0x123456},
                      lineWeightByLayer,
                      1,
                      true},
        AttributeCase{"invisible", groups({{60, "1"}}), {Kind::byLayer, 0}, lineWeightByLayer, 1, false},
        AttributeCase{"thickness is no weight", groups({{39, "30"}}), {Kind::byLayer, 0}, lineWeightByLayer, 1, true},
        AttributeCase{"standard weight", groups({{370, "-3"}}), {Kind::byLayer, 0}, lineWeightDefault, 1, true},
        AttributeCase{"numbers out of range",
                      groups({{62, "999"}, {370, "99999"}, {48, "-1"}}),
                      {Kind::byLayer, 0},
                      211,
                      1,
                      true},
        AttributeCase{
            "weight below the marks", groups({{370, "-9"}}), {Kind::byLayer, 0}, lineWeightByLayer, 1, true}));

} // namespace
} // namespace kelplot
