// SPDX-License-Identifier: BSD-3-Clause
#include <new>
#include <type_traits>

#include <gtest/gtest.h>

#include "keldriver/ClipRgn.h"
#include "keldriver/Utility.h"
#include "support/RegionCases.h"

using namespace KelDriver;

static_assert(std::is_standard_layout_v<HT_ClipRgn> && std::is_trivial_v<HT_ClipRgn>);

namespace {

using regionCases::contoursOf;
using regionCases::textOf;

std::string textOf(const HT_Double_Rectangle& box) {
    return textOf(RgnList(HT_CreateRectRgnData({box.minX, box.minY}, {box.maxX, box.maxY})).get());
}

TEST(RegionCode, OnlyTheLowByteCounts) {
    const int expected[] = {1, 5, 4, 2, 3};
    for (int op = -512; op < 1024; ++op) {
        const int code = op & 255;
        ASSERT_EQ(HT_RGN_OP_2_CDC_OP(op), code < 5 ? expected[code] : 1) << op;
    }
}

TEST(RegionData, CloneIsDeepAndKeepsEverything) {
    const std::string text = "-3 0,0 5,0 5,5 0,5 / 2 1,1 2,1 2,2 / 503";
    const RgnList first = regionOracle::toList(contoursOf(text));
    for (const auto clone : {&HT_CloneRgnData, &HT_CreateRgnFromData}) {
        const RgnList copy(clone(first.get()));
        EXPECT_EQ(textOf(copy.get()), text);
        for (const HT_ClipRgn *from = first.get(), *to = copy.get(); to != nullptr; from = from->next, to = to->next) {
            EXPECT_NE(from, to);
            EXPECT_TRUE(from->points != to->points || from->points == nullptr);
        }
        EXPECT_EQ(clone(nullptr), nullptr);
    }
    const HT_ClipRgn hollow{HT_RGN_OR, nullptr, INT32_MAX, nullptr};
    EXPECT_EQ(RgnList(HT_CloneRgnData(&hollow))->points, nullptr);
    EXPECT_EQ(RgnList(HT_CreatePolygonRgnData(nullptr, 1000))->pointCount, 0);
}

// The leak checker watches what was cloned before the throw.
TEST(RegionData, NegativeCountIsRefused) {
    HT_Double_Point point{0, 0};
    for (HT_Double_Point* bad : {&point, static_cast<HT_Double_Point*>(nullptr)}) {
        HT_ClipRgn third{HT_RGN_OR, nullptr, -1, bad};
        HT_ClipRgn second{HT_RGN_OR, &third, 1, &point};
        const HT_ClipRgn first{HT_RGN_OR, &second, 1, &point};
        EXPECT_THROW(HT_CloneRgnData(&first), std::bad_array_new_length);
        EXPECT_THROW(HT_CreatePolygonRgnData(bad, INT32_MIN), std::bad_array_new_length);
    }
}

TEST(RegionData, RectanglesKeepTheirCornersAndTellTheirBox) {
    const RgnList rectangle(HT_CreateRectRgnData({10, 20}, {0, 0}));
    EXPECT_EQ(textOf(rectangle.get()), "4 10,20 0,20 0,0 10,0");
    EXPECT_EQ(HT_GetClipRgnData(rectangle.get()), rectangle.get());
    HT_Double_Rectangle box{1, 2, 3, 4};
    const RgnList two = regionOracle::toList(contoursOf("4 0,0 4,0 4,4 0,4 / 3 0,0 4,0 4,4 0,4"));
    const RgnList five = regionOracle::toList(contoursOf("4 0,0 4,0 4,4 0,4 0,0"));
    const HT_ClipRgn hollow{HT_RGN_OR, nullptr, 4, nullptr};
    const HT_ClipRgn* const others[] = {nullptr, two.get(), five.get(), &hollow};
    for (const HT_ClipRgn* other : others) {
        EXPECT_FALSE(HT_GetRgnMinRect(other, &box));
        EXPECT_EQ(textOf(box), "4 1,2 3,2 3,4 1,4") << "unchanged";
    }
    EXPECT_TRUE(HT_GetRgnMinRect(rectangle.get(), &box));
    EXPECT_EQ(textOf(box), "4 0,0 10,0 10,20 0,20");
    UnionRectangle(box, {30, 30, -30, -30}); // turned over, it adds its low corner to the high one
    EXPECT_EQ(textOf(box), "4 0,0 10,0 10,20 0,20");
    box = {30, 30, -30, -30};
    UnionRectangle(box, {0, 0, 0, 0});
    EXPECT_EQ(textOf(box), "4 0,0 0,0 0,0 0,0");
}

TEST(RegionData, LongListsNeedNoStack) {
    RgnList list = regionOracle::toList(regionOracle::Contours(200000, {HT_RGN_OR, {{1, 2}}}));
    const RgnList copy(HT_CloneRgnData(list.get()));
    EXPECT_EQ(HT_DeleteRgn(list.release()), 1);
    EXPECT_EQ(HT_DeleteRgn(nullptr), 1);
    ASSERT_NE(copy->next, nullptr);
}

TEST(Region, ClearLeavesTheOpenContoursVerticesToTheDriver) {
    HT_Region region;
    EXPECT_EQ(region.AddPoints(nullptr, 5, 1, 1), 0);
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
