// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/VornRgn.h"

#include <new>

#include <gtest/gtest.h>

#include "support/RegionOracle.h"

namespace {

using regionOracle::boxOf;
using regionOracle::Contours;
using regionOracle::Points;

const Points square = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
const Points triangle = {{0, 0}, {10, 0}, {0, 10}};

const std::vector<double> zeroBox = {0, 0, 0, 0};

TEST(VornRgn, ReportsKindAndBoxOfWhatItWasMadeFrom) {
    const struct {
        const char* name;
        Contours contours;
        int kind;
        int reported;
        std::vector<double> box;
    } rows[] = {
        {"nothing", {}, 3, 1, zeroBox},
        {"a rectangle", {{4, square}}, 1, 2, {0, 0, 10, 10}},
        {"a rectangle with its first point repeated",
         {{4, {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}}},
         2,
         3,
         {0, 0, 10, 10}},
        {"one contour without points", {{4, {}}}, 2, 3, zeroBox},
        {"a contour without points, then a rectangle: not evaluated", {{4, {}}, {1, square}}, 2, 3, zeroBox},
        {"a square cut away wholly", {{3, square}, {2, square}}, 2, 3, zeroBox},
        {"a triangle cut to its corner",
         {{3, triangle}, {0, {{-5, -5}, {2, -5}, {2, 2}, {-5, 2}}}},
         1,
         2,
         {0, 0, 2, 2}},
    };
    for (const auto& row : rows) {
        const CVornRgn rgn(regionOracle::toList(row.contours).get());
        EXPECT_EQ(rgn.m_nType, row.kind) << row.name;
        EXPECT_EQ(rgn.GetRgnBox(nullptr), row.reported) << row.name;
        EXPECT_EQ(boxOf(rgn), row.box) << row.name;
        EXPECT_EQ(rgn.m_pClipRgn == nullptr, row.contours.empty()) << row.name;
    }
}

TEST(VornRgn, AListWhoseFirstContourHasNoPointsIsClonedAsItIs) {
    const CVornRgn rgn(regionOracle::toList({{4, {}}, {2, triangle}, {1, square}}).get());
    const Contours contours = regionOracle::toContours(rgn.m_pClipRgn);
    ASSERT_EQ(contours.size(), 3U);
    EXPECT_EQ(contours[1].mode, 2);
    EXPECT_EQ(contours[2].points.size(), 4U);

    CVornRgn polygon;
    polygon.CreatePolygonRgn(nullptr, 0, 1);
    EXPECT_EQ(polygon.GetRgnBox(nullptr), 3);
    EXPECT_EQ(boxOf(polygon), zeroBox);
    EXPECT_NE(polygon.m_pClipRgn, nullptr);
}

TEST(VornRgn, SortsTheCornersOfARectangleAndMakesItsContourWhenAsked) {
    CVornRgn rgn;
    EXPECT_EQ(rgn.CreateRectRgn(10, 3, -2, 7), 1);
    EXPECT_EQ(rgn.GetRgnBox(nullptr), 2);
    EXPECT_EQ(boxOf(rgn), (std::vector<double>{-2, 3, 10, 7}));
    EXPECT_EQ(rgn.m_pClipRgn, nullptr);

    const HT_ClipRgn* const list = rgn.GetClipRgnRef();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(rgn.GetClipRgnRef(), list);
    EXPECT_EQ(list->mode, HT_RGN_XOR);
    EXPECT_EQ(list->next, nullptr);
    ASSERT_EQ(list->pointCount, 4);
    EXPECT_EQ(list->points[0].x, -2);
    EXPECT_EQ(list->points[1].y, 3);
    EXPECT_EQ(list->points[2].x, 10);
    EXPECT_EQ(list->points[3].y, 7);
}

TEST(VornRgn, NoRegionHasNoContoursAndAnEmptyOneADegenerateRectangle) {
    CVornRgn none;
    EXPECT_EQ(none.GetRgnBox(nullptr), 1);
    EXPECT_EQ(boxOf(none), zeroBox);
    EXPECT_EQ(none.GetClipRgnRef(), nullptr);

    CVornRgn empty(nullptr);
    empty.m_rcBox = {1, 2, 3, 4};
    const HT_ClipRgn* const list = empty.GetClipRgnRef();
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->pointCount, 4);
    EXPECT_EQ(list->points[2].x, 0);
    EXPECT_EQ(list->points[2].y, 0);
    EXPECT_EQ(boxOf(empty), zeroBox);

    CVornRgn unknown;
    unknown.m_nType = 7;
    EXPECT_EQ(unknown.GetClipRgnRef(), nullptr);
    EXPECT_EQ(unknown.GetRgnBox(nullptr), 1);
}

TEST(VornRgn, CopiesAreDeepAndACopyOfItselfChangesNothing) {
    CVornRgn source;
    source.CreatePolygonRgn(triangle.data(), 3, 2);
    CVornRgn copy(source);
    CVornRgn assigned;
    assigned.CreateRectRgn(1, 1, 2, 2);
    assigned = copy;
    EXPECT_EQ(copy.CopyFrom(copy), 1);
    copy = *&copy;
    EXPECT_EQ(source.DeleteObject(), 1);
    for (CVornRgn* rgn : {&copy, &assigned}) {
        EXPECT_EQ(rgn->m_nType, 2);
        EXPECT_EQ(boxOf(*rgn), (std::vector<double>{0, 0, 10, 10}));
        ASSERT_EQ(rgn->GetClipRgnRef()->pointCount, 3);
        EXPECT_EQ(rgn->GetClipRgnRef()->points[2].y, 10);
    }
    EXPECT_NE(copy.m_pClipRgn, assigned.m_pClipRgn);
    EXPECT_EQ(source.m_nType, 0);
    EXPECT_EQ(source.m_pClipRgn, nullptr);
    EXPECT_EQ(boxOf(source), zeroBox);
}

TEST(VornRgn, PolygonsMayComeFromTheRegionItself) {
    CVornRgn rgn;
    rgn.CreatePolygonRgn(square.data(), 4, 1);
    EXPECT_EQ(rgn.CreatePolygonRgn(rgn.m_pClipRgn->points, 3, 1), 1);
    EXPECT_EQ(rgn.m_nType, 2);
    EXPECT_EQ(rgn.GetClipRgnRef()->pointCount, 3);
    EXPECT_EQ(rgn.GetClipRgnRef()->points[1].x, 10);
}

TEST(VornRgn, ANegativeCountThrowsAndLeavesTheRegion) {
    CVornRgn rgn;
    rgn.CreateRectRgn(1, 2, 3, 4);
    EXPECT_THROW(rgn.CreatePolygonRgn(square.data(), -1, 1), std::bad_array_new_length);
    EXPECT_EQ(boxOf(rgn), (std::vector<double>{1, 2, 3, 4}));
    HT_ClipRgn broken{HT_RGN_OR, nullptr, -2, nullptr};
    EXPECT_THROW(CVornRgn{&broken}, std::bad_array_new_length);
}

} // namespace
