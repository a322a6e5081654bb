// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "kelplot/plot/PlotKit.h"
#include "kelplot/reader/DrawingText.h"
#include "plot/annotation/AnnotationBlocks.h"
#include "plot/annotation/ToleranceParts.h"

namespace kelplot {
namespace {

/// Letters 3 high, arrow heads 2 long, 1 around the text. `changes` are a dimension's own of its style.
Drawing dimensioned(const std::string& groups, const std::string& changes) {
    Drawing drawing = readGroups(section("TABLES", "0=DIMSTYLE 2=S 41=2 140=3 147=1 271=0 279=2") +
                                 drawingOf("0=DIMENSION 3=S " + groups + " 1001=ACAD 1000=DSTYLE 1002={ " + changes));
    buildAnnotations(drawing, {});
    return drawing;
}

/// Without a dimension line and extension lines.
constexpr const char* textAlone = " 1070=75 1070=1 1070=76 1070=1 1070=281 1070=1 1070=282 1070=1";

TEST(DimensionText, StandsWhereItIsStatedOrFound) {
    struct Row {
        const char* name;
        const char* groups;
        const char* changes;
        Vec2 middle;
        bool upright;
    };
    // "1000" along a line 1000 long, which is more than twice as wide as it is high.
    const std::string length = "10=1500 20=50 13=500 14=1500 ";
    const Row rows[] = {
        {"level, as stated", "50=0 11=700 21=60", "", {700, 60}, false},
        {"in the line", "", "", {1000, 50}, false},
        {"raised by half its height", "", "1070=145 1040=0.5", {1000, 51.5}, false},
        {"above the line", "", "1070=77 1070=1", {1000, 52.5}, false},
        {"below the line", "", "1070=77 1070=4", {1000, 47.5}, false},
        {"turned by itself", "53=90 11=700 21=60", "", {700, 60}, true},
        {"level outside of an upright line", "50=90 24=1000 11=700 21=2000", "1070=73 1070=0", {700, 2000}, false},
        {"along an upright line", "50=90 24=1000 11=700 21=60", "1070=73 1070=0", {700, 60}, true},
    };
    for (const Row& row : rows) {
        const Box2 ink = extentsOf(dimensioned(length + row.groups, row.changes + std::string(textAlone)));
        EXPECT_NEAR(ink.center().x, row.middle.x, 0.4) << row.name;
        EXPECT_NEAR(ink.center().y, row.middle.y, 0.4) << row.name;
        EXPECT_EQ(ink.height() > ink.width(), row.upright) << row.name;
    }
}

/// The level stretches of a line 50 high, by their ends.
std::vector<double> levelEnds(const Drawing& drawing) {
    std::vector<double> ends;
    for (const Shape& shape : shapesOf(drawing, tenfoldTarget())) {
        const std::vector<Vec2> points = shape.points();
        if (shape.kind == "line" && points.front().y == 500.0 && points.back().y == 500.0) {
            ends.insert(ends.end(), {points.front().x / 10.0, points.back().x / 10.0});
        }
    }
    return ends;
}

/// Half the width of a text 3 high.
double halfWidth(const std::string& text) {
    return extentsOf(withEntities("0=MTEXT 40=3 71=5 1=" + text)).width() / 2.0;
}

TEST(DimensionText, BreaksTheLineThatItStandsIn) {
    const double half = halfWidth("80");
    const struct {
        const char* name;
        std::string groups;
        std::string changes;
        double left;
        double right;
    } rows[] = {
        {"straight", "10=90 20=50 13=10 14=90", "", 50.0 - half - 1.0, 50.0 + half + 1.0},
        {"straight, to one side", "10=90 20=50 13=10 14=90 11=30 21=50", "", 30.0 - half - 1.0, 30.0 + half + 1.0},
        {"through a circle", "70=3 10=10 20=50 15=90 25=50 11=50 21=50 1=80", "", 50.0 - half - 1.0, 50.0 + half + 1.0},
        // Its line bends under it, an arrow head before the gap.
        {"over the end of a line", "70=4 20=50 15=10 25=50 21=52.5 1=80 11=" + std::to_string(88.0 - half),
         "1070=77 1070=1", 88.0 - 2.0 * half - 3.0, 88.0 - 2.0 * half - 3.0},
    };
    for (const auto& row : rows) {
        const std::vector<double> ends = levelEnds(dimensioned(row.groups, row.changes));
        ASSERT_EQ(ends.size(), 4U) << row.name;
        EXPECT_NEAR(ends[0], 12.0, 0.1) << row.name;
        EXPECT_NEAR(ends[1], row.left, 0.1) << row.name;
        EXPECT_NEAR(ends[2], row.right, 0.1) << row.name;
        EXPECT_NEAR(ends[3], 88.0, 0.1) << row.name;
    }
}

TEST(DimensionText, OutsideOfACircleLeavesRoomForItsCentreLines) {
    const std::string circle = "70=4 10=50 20=50 15=80 25=50 11=120 21=90 1=8";
    std::vector<double> ends = levelEnds(dimensioned(circle, "1070=141 1040=-2")); // the sign asks for lines, too
    std::sort(ends.begin(), ends.end());
    EXPECT_EQ(ends, (std::vector<double>{18, 46, 48, 52, 54, 82}));
}

TEST(DimensionText, KeepsClearOfTheLineThatItStandsBeside) {
    const std::string tolerance = " 1070=71 1070=1 1070=47 1040=0.2 1070=48 1040=0.1 1070=272 1070=1";
    const std::string limits = " 1070=72 1070=1 1070=47 1040=2 1070=48 1040=1";
    const std::string above = "1070=77 1070=1 1070=73 1070=0";
    const std::string below = "1070=77 1070=4 1070=73 1070=0";
    const std::string level = "10=1500 20=50 13=500 14=1500 ";
    const std::string upright = "50=90 10=70 23=500 24=1500 ";
    const struct {
        const char* name;
        std::string groups;
        std::string changes;
        double Vec2::*across;
        double line;
        double side; ///< where the text stands; 0: its middle is on the line
    } rows[] = {
        {"plain", level, above, &Vec2::y, 50, 1},
        {"tolerances", level, above + tolerance, &Vec2::y, 50, 1},
        {"limits", level, above + limits, &Vec2::y, 50, 1},
        {"two rows", level + "1=<>\\X8", above, &Vec2::y, 50, 1},
        {"tolerances below", level, below + tolerance, &Vec2::y, 50, -1},
        {"limits on an upright line", upright, above + limits, &Vec2::x, 70, -1},
        {"limits in the line", level, limits, &Vec2::y, 50, 0},
        {"limits where they are stated", level + "11=700 21=60", limits, &Vec2::y, 60, 0},
    };
    for (const auto& row : rows) {
        const Box2 ink = extentsOf(dimensioned(row.groups, row.changes + textAlone));
        const double low = ink.min.*row.across - row.line;
        const double high = ink.max.*row.across - row.line;
        // 1 around the text; fonts differ a little in how they fill the height of a letter.
        EXPECT_NEAR(row.side > 0 ? low : (row.side < 0 ? -high : 1.0 + (low + high) / 2.0), 1.0, 0.15) << row.name;
    }
}

TEST(DimensionText, StandsOutsideWhereItDoesNotFit) {
    const std::string narrow = "10=110 20=50 13=100 14=110 1=8888888 ";
    const std::string tight = "10=105 20=50 13=100 14=105 1=888 ";
    const std::string wide = "10=1100 20=50 13=100 14=1100 1=88 ";
    const std::string beside = " 1070=279 1070=0";
    const double longHalf = halfWidth("8888888");
    const double shortHalf = halfWidth("88");
    // Arrow heads are 2 long, and 4 with the line behind them where they are outside. The text is 1 away from them.
    const struct {
        const char* name;
        std::string groups;
        std::string changes;
        Vec2 middle;
    } rows[] = {
        {"arrow heads inside", narrow, beside, {113 + longHalf, 50}},
        {"nothing inside", narrow, beside + " 1070=289 1070=0", {115 + longHalf, 50}},
        {"neither has room", tight, beside, {110 + halfWidth("888"), 50}},
        {"above", narrow, beside + " 1070=77 1070=1", {113 + longHalf, 52.5}},
        {"forced inside", narrow, beside + " 1070=174 1070=1", {105, 50}},
        {"over the line", narrow, "", {105, 57.5}},
        {"where it is stated", narrow + "11=105 21=70", beside, {105, 70}},
        {"next to the first line", wide, "1070=280 1070=1", {103 + shortHalf, 50}},
        {"next to the second line", wide, "1070=280 1070=2", {1097 - shortHalf, 50}},
        {"above the second line, left of it", wide, "1070=280 1070=4", {1097.5, 51 + shortHalf}},
        {"beside an angle, level", "70=5 10=200 20=0.1 13=200 14=200 24=1 1=8", beside, {200, 7.5}},
    };
    for (const auto& row : rows) {
        const Box2 ink = extentsOf(dimensioned(row.groups, row.changes + textAlone));
        EXPECT_NEAR(ink.center().x, row.middle.x, 0.4) << row.name;
        EXPECT_NEAR(ink.center().y, row.middle.y, 0.4) << row.name;
    }
}

TEST(DimensionText, OutsideHasTheLineUnderIt) {
    // Two arrow heads and a line between them, which goes on to the end of the text.
    const std::string groups = "10=30 20=50 13=20 14=30 1=8888888";
    const std::string above = "1070=279 1070=0 1070=77 1070=1";
    std::vector<double> ends = levelEnds(dimensioned(groups, above));
    ASSERT_EQ(ends.size(), 4U);
    std::sort(ends.begin(), ends.end());
    EXPECT_NEAR(ends[0], 22.0, 0.1);
    EXPECT_NEAR(ends[1], 28.0, 0.1);
    EXPECT_NEAR(ends[2], 30.0, 0.1);
    EXPECT_NEAR(ends[3], 33.0 + 2.0 * halfWidth("8888888"), 0.1);
    // A text that is forced inside may leave out what would be outside.
    EXPECT_TRUE(levelEnds(dimensioned(groups, above + " 1070=174 1070=1 1070=175 1070=1")).empty());
}

TEST(Dimensions, ThatCannotBeDrawnAreNamed) {
    const struct {
        const char* groups;
        const char* changes;
        const char* kind;
    } rows[] = {
        {"10=50 20=40 13=10 14=50", "1070=40 1040=1e9", "DIMENSION with an impossible size"},
        {"10=50 20=40 13=10 14=50", "1070=40 1040=1e-30", "DIMENSION with an impossible size"},
        {"70=4 10=1e99 15=-1e99", "1070=40 1040=1e99 1070=41 1040=1e99", "DIMENSION with an impossible size"},
        {"70=2 13=10 14=20 15=10 25=5 10=20 20=5", "", "DIMENSION with points that it cannot measure"},
        {"70=7 1=8", "", "DIMENSION without a block"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(dimensioned(row.groups, row.changes).unplottedKinds, std::vector<std::string>{row.kind})
            << row.groups << ' ' << row.changes;
    }
}

TEST(ToleranceFrame, HasALineAroundEachCell) {
    ToleranceFrame frame;
    frame.position = {10.0, 20.0, 0.0};
    frame.rotation = std::acos(0.0);
    frame.textHeight = 2.0;
    frame.gap = 1.0;
    frame.rows = {{MText(), MText()}, {MText()}};
    // Cells 5 and 8 wide, and one that has the least width for its letters; 4 high.
    const std::vector<Entity> parts = tolerancePartsOf(frame, {{{{0, 0}, {3, 2}}, {{0, 0}, {6, 2}}}, {Box2()}});
    std::string lines;
    for (const Entity& part : parts) {
        if (const auto* const line = std::get_if<Line>(&part.geometry)) {
            for (const Vec3& end : {line->start, line->end}) {
                lines += std::to_string(std::lround(end.x)) + ',' + std::to_string(std::lround(end.y)) + ' ';
            }
        }
    }
    EXPECT_EQ(lines, "8,20 12,20 8,25 12,25 8,33 12,33 8,20 8,33 12,20 12,33 "
                     "12,20 16,20 12,23 16,23 12,20 12,23 16,20 16,23 ");
    EXPECT_EQ(parts.size(), 12U);
}

} // namespace
} // namespace kelplot
