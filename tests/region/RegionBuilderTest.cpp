// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include "keldriver/ClipRgn.h"
#include "keldriver/Utility.h"

namespace {

TEST(Region, NullPieceIsRefused) {
    HT_Region region;
    EXPECT_EQ(region.AddPoints(nullptr, 5, 1, 1), 0);
    EXPECT_TRUE(region.contours.empty() && region.current == nullptr);
}

TEST(Region, ClearLeavesTheOpenContoursVerticesToTheDriver) {
    HT_Region region;
    const HT_Double_Point triangle[] = {{0, 0}, {4, 0}, {4, 4}, {0, 0}};
    region.AddPoints(triangle, 4, 0, 1);
    region.AddPoints(triangle, 2, 0, 1);
    HT_Double_Point* const vertices = region.current->points;
    region.Clear();
    EXPECT_TRUE(region.contours.empty());
    EXPECT_NE(region.current, nullptr);
    EXPECT_EQ(vertices[1].x, 4.0); // still there
    HT_Free(vertices);
}

TEST(Contour, AddPointReplacesEvenByItsOwnVertices) {
    HT_Contour contour{nullptr, 0, 1, 5};
    const HT_Double_Point points[] = {{0, 0}, {1, 0}, {2, 0}};
    EXPECT_EQ(contour.AddPoint(points, 3), 1);
    EXPECT_EQ(contour.AddPoint(contour.points + 1, 2), 1);
    EXPECT_TRUE(contour.count == 2 && contour.points[0].x == 1 && contour.points[1].x == 2);
    EXPECT_TRUE(contour.closed == 1 && contour.mode == 5);
    EXPECT_EQ(contour.AddPoint(points, -4), 1);
    EXPECT_EQ(contour.count, -4);
    EXPECT_EQ(contour.AddPoint(nullptr, 2), 1);
    EXPECT_EQ(contour.points, nullptr);
    HT_Free(contour.points);
}

} // namespace
