// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <algorithm>

#include "kelplot/plot/PlotKit.h"
#include "plot/EntityWalk.h"

namespace kelplot {
namespace {

class Counter : public EntityVisitor {
public:
    void visit(const Entity&, const EntityStyle&, const PlanMap&) override { ++count; }

    size_t count = 0;
};

const Line shortLine{{0, 0, 0}, {1, 0, 0}};

Insert arrayOf(uint32_t block, int columns, int rows, double spacing = 2.0) {
    Insert insert = referenceTo(block);
    insert.columns = columns;
    insert.rows = rows;
    insert.columnSpacing = spacing;
    insert.rowSpacing = spacing;
    return insert;
}

/// Blocks of which each holds a reference like `inner` to the one before; the first holds `lines` lines.
Drawing nestedDrawing(size_t depth, const Insert& inner, size_t lines = 1) {
    Drawing drawing = emptyDrawing();
    drawing.blocks.push_back({"0", {}, std::vector<Entity>(lines, entityOf(shortLine))});
    for (size_t i = 1; i < depth; ++i) {
        Insert insert = inner;
        insert.block = static_cast<uint32_t>(i - 1);
        drawing.blocks.push_back({std::to_string(i), {}, {entityOf(insert)}});
    }
    Insert outermost = inner;
    outermost.block = static_cast<uint32_t>(depth - 1);
    drawing.modelSpace.push_back(entityOf(outermost));
    return drawing;
}

/// A drawing with one block: a line from (1, 0) to (2, 0), base point (1, 0).
Drawing drawingWithBlock(const Insert& reference, Vec3 extrusion = {0.0, 0.0, 1.0}) {
    Drawing drawing = drawingOf(entityOf(Line{{1.0, 0.0, 0.0}, {2.0, 0.0, 0.0}}), entityOf(reference, extrusion));
    drawing.blocks[0].basePoint = {1.0, 0.0, 0.0};
    return drawing;
}

constexpr double quarterTurn = 1.5707963267948966;

TEST(Blocks, ArePlacedByTheirReferences) {
    const struct {
        const char* name;
        Vec3 position;
        Vec3 scale;
        double rotation;
        Vec3 extrusion;
        const char* expected; ///< a drawing unit is 10 device units, y turned over
    } cases[] = {
        {"moved", {20, 30, 0}, {1, 1, 1}, 0.0, {0, 0, 1}, "line 200,700 210,700\n"},
        {"turned", {20, 30, 0}, {5, 1, 1}, quarterTurn, {0, 0, 1}, "line 200,700 200,650\n"},
        {"mirrored", {20, 30, 0}, {-5, 1, 1}, 0.0, {0, 0, 1}, "line 200,700 150,700\n"},
        {"seen from below", {-20, 30, 0}, {5, 1, 1}, 0.0, {0, 0, -2}, "line 200,700 150,700\n"},
        {"turned seen from below", {-20, 30, 0}, {5, 1, 1}, quarterTurn, {0, 0, -1}, "line 200,700 200,650\n"},
        // The plane across x has y as its x axis and z as its y axis.
        {"seen from the side", {20, 30, 40}, {5, 1, 1}, 0.0, {1, 0, 0}, "line 400,800 400,750\n"},
        {"tilted", {20, 0, 30}, {5, 1, 1}, 0.0, {1.2, 0, 1.6}, "line 180,800 180,750\n"},
        {"no extrusion", {20, 30, 0}, {1, 1, 1}, 0.0, {0, 0, 0}, "line 200,700 210,700\n"},
    };
    for (const auto& row : cases) {
        Insert reference = referenceTo(0);
        reference.position = row.position;
        reference.scale = row.scale;
        reference.rotation = row.rotation;
        EXPECT_EQ(textOf(shapesOf(drawingWithBlock(reference, row.extrusion))), row.expected) << row.name;
    }
}

TEST(Blocks, RowsAndColumnsTurnWithTheReference) {
    Insert reference = referenceTo(0);
    reference.position = {50, 50, 0};
    reference.rotation = quarterTurn;
    reference.columns = 2;
    reference.rows = 2;
    reference.columnSpacing = 10.0;
    reference.rowSpacing = 20.0;
    const Drawing drawing = drawingWithBlock(reference);
    EXPECT_EQ(textOf(shapesOf(drawing)), "line 500,500 500,490\nline 500,400 500,390\n"
                                         "line 300,500 300,490\nline 300,400 300,390\n");
    const Box2 extents = visibleExtents(drawing, drawing.modelSpace);
    EXPECT_NEAR(extents.min.x, 30.0, 1e-9);
    EXPECT_NEAR(extents.max.y, 61.0, 1e-9);
}

TEST(Blocks, HeightInATiltedReferenceMovesTheContent) {
    const Drawing drawing = drawingOf(entityOf(Line{{0, 0, 7}, {0, 5, 7}}), entityOf(referenceTo(0), {1.0, 0.0, 0.0}));
    // The block's z is the world's x there, and its y points at the viewer.
    EXPECT_EQ(textOf(shapesOf(drawing)), "line 70,1000 70,1000\n");
}

TEST(Blocks, InBlocksAddUp) {
    Insert inner = referenceTo(0);
    inner.position = {2, 0, 0};
    inner.scale = {3, 3, 3};
    Insert outer = referenceTo(1);
    outer.position = {10, 10, 0};
    outer.rotation = quarterTurn;
    Drawing drawing = drawingWithBlock(outer);
    drawing.blocks.push_back({"outer", {}, {entityOf(inner)}});
    EXPECT_EQ(textOf(shapesOf(drawing)), "line 100,880 100,850\n");
}

TEST(Blocks, ThatHoldThemselvesEnd) {
    Drawing drawing = drawingWithBlock(referenceTo(0));
    drawing.blocks[0].entities.push_back(entityOf(referenceTo(1)));
    drawing.blocks.push_back({"back", {}, {entityOf(referenceTo(0)), entityOf(referenceTo(1))}});
    EXPECT_EQ(shapesOf(drawing).size(), 1U);
    EXPECT_FALSE(visibleExtents(drawing, drawing.modelSpace).isEmpty());
}

TEST(Blocks, CopiesBeyondNumberHaveExtents) {
    Insert many = referenceTo(0);
    many.columns = 2'000'000'000;
    many.rows = 2'000'000'000;
    many.columnSpacing = 1e-9;
    const Drawing drawing = drawingWithBlock(many);
    const Box2 extents = visibleExtents(drawing, drawing.modelSpace);
    EXPECT_NEAR(extents.max.x, 3.0, 1e-6) << "the last column";
}

TEST(Walk, EndsAtItsLimitsAndSaysSo) {
    Drawing plain = emptyDrawing();
    plain.modelSpace.assign(5000, entityOf(shortLine));
    Drawing references = nestedDrawing(1, referenceTo(0));
    references.modelSpace.assign(3000, entityOf(referenceTo(0)));
    Drawing goesOn = nestedDrawing(1, arrayOf(0, 32767, 32767));
    goesOn.modelSpace.push_back(entityOf(shortLine));
    const struct {
        const char* name;
        Drawing drawing;
        size_t fewest, most; ///< visits of lines
        bool tooManyCopies;
        bool tooDeep;
    } cases[] = {
        {"many entities of the drawing's own", plain, 5000, 5000, false, false},
        {"many references", references, 3000, 3000, false, false},
        {"some copies", nestedDrawing(1, arrayOf(0, 20, 20)), 400, 400, false, false},
        {"the most copies", nestedDrawing(1, arrayOf(0, 32767, 32767)), 900, 1010, true, false},
        {"more than a row can hold", nestedDrawing(1, arrayOf(0, 2'000'000'000, 2'000'000'000)), 900, 1010, true,
         false},
        {"copies that lie on one another", nestedDrawing(1, arrayOf(0, 32767, 32767, 0.0)), 1, 1, false, false},
        {"copies of copies", nestedDrawing(12, arrayOf(0, 5, 5)), 400, 1030, true, false},
        {"copies of nothing", nestedDrawing(12, arrayOf(0, 5, 5), 0), 0, 0, true, false},
        {"a large block", nestedDrawing(1, referenceTo(0), 5000), 5000, 5000, false, false},
        {"entities after too many copies", goesOn, 900, 1010, true, false},
        {"just not too deep", nestedDrawing(30, referenceTo(0)), 1, 1, false, false},
        {"too deep", nestedDrawing(31, referenceTo(0)), 0, 0, false, true},
    };
    for (const auto& row : cases) {
        Counter counter;
        WalkRules rules;
        rules.limits = {30, 1000, 2};
        const WalkReport report = EntityWalk(row.drawing, rules, counter).run(row.drawing.modelSpace, PlanMap(), {});
        EXPECT_GE(counter.count, row.fewest) << row.name;
        EXPECT_LE(counter.count, row.most) << row.name;
        EXPECT_EQ(report.tooManyCopies, row.tooManyCopies) << row.name;
        EXPECT_EQ(report.tooDeep, row.tooDeep) << row.name;
    }
}

TEST(Walk, CountsReferencesToUndefinedBlocksOnce) {
    Drawing drawing = nestedDrawing(1, arrayOf(0, 3, 3));
    drawing.blocks.push_back({"missing", {}, {}, false});
    drawing.blocks.push_back({"empty", {}, {}});
    drawing.blocks[0].entities.push_back(entityOf(referenceTo(1)));
    drawing.modelSpace.push_back(entityOf(referenceTo(1)));
    drawing.modelSpace.push_back(entityOf(referenceTo(2)));
    drawing.layers.push_back({});
    drawing.layers[1].frozen = true;
    drawing.modelSpace.push_back(entityOf(referenceTo(1)));
    drawing.modelSpace.back().attributes.layer = 1;
    WalkReport report;
    visibleExtents(drawing, drawing.modelSpace, &report);
    EXPECT_EQ(report.undefined.size(), 2U) << "the one in the block and the one on the layer that shows";
}

TEST(Walk, LeavesOutCopiesOffThePage) {
    Insert turned = arrayOf(0, 30000, 30000, 5.0);
    turned.position = {-50000, -50000, 0};
    turned.rotation = 0.3;
    for (const double rowSpacing : {5.0, -5.0}) {
        turned.rowSpacing = rowSpacing;
        turned.position.y = rowSpacing > 0 ? -50000 : 50000;
        const Drawing drawing = nestedDrawing(1, turned);
        RecordingRenderer renderer;
        const PlotReport report = plotEntities(drawing, drawing.modelSpace, tenfoldTarget(), {}, {renderer}, {});
        EXPECT_FALSE(report.tooManyCopies);
        // One copy for each 5 by 5 units of a page of 100 by 100, and some that cross its border.
        EXPECT_GE(renderer.shapes.size(), 360U);
        EXPECT_LE(renderer.shapes.size(), 480U);
    }
}

TEST(Walk, ProgressRisesWithinOneReference) {
    Insert second = referenceTo(1);
    second.position = {5, 5, 0};
    Drawing twoLevels = nestedDrawing(2, second, 5000);
    Drawing plain = emptyDrawing();
    plain.modelSpace.assign(5000, entityOf(shortLine));
    const std::pair<const char*, Drawing> cases[] = {
        {"many entities", plain},
        {"one reference to a large block", nestedDrawing(1, referenceTo(0), 5000)},
        {"one reference to many copies", nestedDrawing(1, arrayOf(0, 80, 80, 0.1))},
        {"a large block in a block", twoLevels},
    };
    for (const auto& [name, drawing] : cases) {
        std::vector<double> told;
        RecordingRenderer renderer;
        plotEntities(drawing, drawing.modelSpace, tenfoldTarget(), {}, {renderer},
                     [&](double fraction) { told.push_back(fraction); });
        ASSERT_FALSE(told.empty()) << name;
        EXPECT_TRUE(std::is_sorted(told.begin(), told.end())) << name;
        EXPECT_EQ(told.back(), 1.0) << name;
        const auto between = [](double fraction) {
            return fraction > 0.0 && fraction < 1.0;
        };
        EXPECT_GE(std::count_if(told.begin(), told.end(), between), 3) << name;
    }
}

TEST(CopyGrids, FindTheColumnsThatMeetABox) {
    constexpr struct {
        const char* name;
        double rotation, columnSpacing, rowSpacing;
    } cases[] = {
        {"level", 0.0, 3.0, 4.0},   {"backwards", 0.0, -3.0, -4.0},  {"turned", 0.7, 3.0, 4.0},
        {"upright", 1.5708, 3, -4}, {"close together", 0.2, 0.1, 9}, {"far apart", 3.0, 700.0, 4.0},
    };
    Box2 visible;
    visible.add(Vec2{-10.0, 5.0});
    visible.add(Vec2{12.0, 30.0});
    Box2 ink;
    ink.add(Vec2{0.0, 0.0});
    ink.add(Vec2{2.0, 1.0});
    for (const auto& row : cases) {
        Insert insert = arrayOf(0, 50, 50);
        insert.rotation = row.rotation;
        insert.columnSpacing = row.columnSpacing;
        insert.rowSpacing = row.rowSpacing;
        const CopyGrid grid(insert, {}, PlanMap());
        for (int gridRow = 0; gridRow < grid.rows; ++gridRow) {
            const CopyGrid::Range range = grid.columnsThatMeet(visible, ink, gridRow);
            int meeting = 0;
            for (int column = 0; column < grid.columns; ++column) {
                const Vec2 moved = grid.mapOf(column, gridRow).origin - grid.first.origin;
                const bool meets = Box2{ink.min + moved, ink.max + moved}.intersects(visible);
                meeting += meets ? 1 : 0;
                EXPECT_TRUE(!meets || (range.begin <= column && column < range.end)) << row.name << ' ' << column;
            }
            EXPECT_LE(range.end - range.begin, meeting + 4) << row.name << ' ' << gridRow;
        }
    }
}

} // namespace
} // namespace kelplot
