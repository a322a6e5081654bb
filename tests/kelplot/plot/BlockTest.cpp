// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

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

} // namespace
} // namespace kelplot
