// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

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

TEST(DimensionText, BreaksTheLineThatItStandsIn) {
    const double half = extentsOf(withEntities("0=MTEXT 40=3 71=5 1=80")).width() / 2.0;
    const struct {
        const char* name;
        const char* groups;
        double left;
        double right;
    } rows[] = {
        {"straight", "10=90 20=50 13=10 14=90", 50.0 - half - 1.0, 50.0 + half + 1.0},
        {"straight, to one side", "10=90 20=50 13=10 14=90 11=30 21=50", 30.0 - half - 1.0, 30.0 + half + 1.0},
        {"through a circle", "70=3 10=10 20=50 15=90 25=50 11=50 21=50 1=80", 50.0 - half - 1.0, 50.0 + half + 1.0},
    };
    for (const auto& row : rows) {
        const Shapes shapes = shapesOf(dimensioned(row.groups, ""), tenfoldTarget());
        std::vector<double> ends;
        for (const Shape& shape : shapes) {
            const std::vector<Vec2> points = shape.points();
            if (shape.kind == "line" && points.front().y == 500.0 && points.back().y == 500.0) {
                ends.insert(ends.end(), {points.front().x / 10.0, points.back().x / 10.0});
            }
        }
        ASSERT_EQ(ends.size(), 4U) << row.name;
        EXPECT_NEAR(ends[0], 12.0, 0.1) << row.name;
        EXPECT_NEAR(ends[1], row.left, 0.1) << row.name;
        EXPECT_NEAR(ends[2], row.right, 0.1) << row.name;
        EXPECT_NEAR(ends[3], 88.0, 0.1) << row.name;
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
