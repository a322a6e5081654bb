// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/VornRgn.h"

#include <new>

#include <gtest/gtest.h>

#include "support/RegionCases.h"

namespace {

using regionCases::textOf;
using regionOracle::boxOf;
using regionOracle::Contours;
using regionOracle::Points;

using Box = std::vector<double>;

const Points square = regionCases::pointsOf("0,0 10,0 10,10 0,10");
const Box zeroBox = {0, 0, 0, 0};

TEST(VornRgn, AListWhoseFirstContourHasNoPointsIsClonedAsItIs) {
    const std::string list = "4 / 2 0,0 10,0 0,10 / 1 0,0 10,0 10,10 0,10";
    const CVornRgn rgn(regionOracle::toList(regionCases::contoursOf(list)).get());
    EXPECT_EQ(textOf(rgn.m_pClipRgn), list);

    CVornRgn polygon;
    polygon.CreatePolygonRgn(nullptr, 0, 1);
    EXPECT_EQ(polygon.GetRgnBox(nullptr), 3);
    EXPECT_EQ(boxOf(polygon), zeroBox);
    EXPECT_EQ(textOf(polygon.m_pClipRgn), "4");
}

TEST(VornRgn, ARectangleMakesItsContourWhenAsked) {
    CVornRgn rgn;
    EXPECT_EQ(rgn.CreateRectRgn(10, 3, -2, 7), 1); // sorts the corners
    EXPECT_EQ(rgn.GetRgnBox(nullptr), 2);
    EXPECT_EQ(boxOf(rgn), (Box{-2, 3, 10, 7}));
    EXPECT_EQ(rgn.m_pClipRgn, nullptr);
    const HT_ClipRgn* const list = rgn.GetClipRgnRef();
    EXPECT_EQ(textOf(list), "4 -2,3 10,3 10,7 -2,7");
    EXPECT_EQ(rgn.GetClipRgnRef(), list);

    CVornRgn none;
    EXPECT_EQ(none.GetRgnBox(nullptr), 1);
    EXPECT_EQ(boxOf(none), zeroBox);
    EXPECT_EQ(none.GetClipRgnRef(), nullptr);

    CVornRgn empty(nullptr);
    empty.m_rcBox = {1, 2, 3, 4};
    EXPECT_EQ(textOf(empty.GetClipRgnRef()), "4 0,0 0,0 0,0 0,0");
    EXPECT_EQ(boxOf(empty), zeroBox);

    CVornRgn unknown;
    unknown.m_nType = 7;
    EXPECT_EQ(unknown.GetClipRgnRef(), nullptr);
    EXPECT_EQ(unknown.GetRgnBox(nullptr), 1);
}

TEST(VornRgn, CopiesAreDeepAndACopyOfItselfChangesNothing) {
    CVornRgn source;
    source.CreatePolygonRgn(square.data(), 3, 2);
    CVornRgn copy(source);
    CVornRgn assigned;
    assigned.CreateRectRgn(1, 1, 2, 2);
    assigned = copy;
    EXPECT_EQ(copy.CopyFrom(copy), 1);
    copy = *&copy;
    EXPECT_EQ(source.DeleteObject(), 1);
    for (CVornRgn* rgn : {&copy, &assigned}) {
        EXPECT_EQ(rgn->m_nType, 2);
        EXPECT_EQ(boxOf(*rgn), (Box{0, 0, 10, 10}));
        EXPECT_EQ(textOf(rgn->GetClipRgnRef()), "4 0,0 10,0 10,10");
    }
    EXPECT_NE(copy.m_pClipRgn, assigned.m_pClipRgn);
    EXPECT_TRUE(source.m_nType == 0 && source.m_pClipRgn == nullptr && boxOf(source) == zeroBox);
}

TEST(VornRgn, PolygonsMayComeFromTheRegionItselfAndNegativeCountsThrow) {
    CVornRgn rgn;
    rgn.CreatePolygonRgn(square.data(), 4, 1);
    EXPECT_EQ(rgn.CreatePolygonRgn(rgn.m_pClipRgn->points, 3, 1), 1);
    EXPECT_EQ(rgn.m_nType, 2);
    EXPECT_EQ(textOf(rgn.GetClipRgnRef()), "4 0,0 10,0 10,10");
    EXPECT_THROW(rgn.CreatePolygonRgn(square.data(), -1, 1), std::bad_array_new_length);
    EXPECT_EQ(rgn.GetClipRgnRef()->pointCount, 3) << "the region stays";
    const HT_ClipRgn broken{HT_RGN_OR, nullptr, -2, nullptr};
    EXPECT_THROW(CVornRgn{&broken}, std::bad_array_new_length);
}

// Every level may hold 3840 brackets; copies of the region for each would fill any memory.
TEST(VornRgn, ManyBracketsAroundLargeContoursAreEvaluated) {
    Points circle;
    for (int i = 0; i < 20000; ++i) {
        circle.push_back({std::cos(i * M_PI / 10000), std::sin(i * M_PI / 10000)});
    }
    CVornRgn rgn;
    rgn.m_pClipRgn = regionOracle::toList(Contours(64, {0xF00 | HT_RGN_AND, circle})).release();
    rgn.StandardRgn();
    const Contours result = regionOracle::toContours(rgn.m_pClipRgn);
    EXPECT_TRUE(isInside(result, {0.7, 0.7}) && !isInside(result, {0.72, 0.72}));
}

} // namespace
