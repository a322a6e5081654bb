// SPDX-License-Identifier: BSD-3-Clause
#include <new>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "keldriver/ClipRgn.h"
#include "support/RgnList.h"

using namespace KelDriver;

static_assert(std::is_standard_layout_v<HT_ClipRgn> && std::is_trivial_v<HT_ClipRgn>);

namespace {

using Points = std::vector<HT_Double_Point>;

// A driver's own record, which only reading functions see.
HT_ClipRgn contourOf(Points& points, int mode, HT_ClipRgn* next = nullptr) {
    return {mode, next, static_cast<int32_t>(points.size()), points.data()};
}

std::string textOf(const HT_ClipRgn* rgn) {
    std::string text;
    char number[64];
    for (; rgn != nullptr; rgn = rgn->next) {
        text += "mode " + std::to_string(rgn->mode) + " count " + std::to_string(rgn->pointCount) + ":";
        for (int i = 0; rgn->points != nullptr && i < rgn->pointCount; ++i) {
            std::snprintf(number, sizeof number, " %g,%g", rgn->points[i].x, rgn->points[i].y);
            text += number;
        }
        text += rgn->next != nullptr ? "; " : "";
    }
    return text;
}

TEST(RegionCode, OnlyTheLowByteCounts) {
    const int expected[] = {1, 5, 4, 2, 3};
    for (int op = -512; op < 1024; ++op) {
        const int code = op & 255;
        ASSERT_EQ(HT_RGN_OP_2_CDC_OP(op), code < 5 ? expected[code] : 1) << op;
    }
}

TEST(RegionData, CloneIsDeepAndKeepsEverything) {
    Points hole{{1, 1}, {2, 1}, {2, 2}};
    HT_ClipRgn last{0x1F7, nullptr, 0, nullptr};
    HT_ClipRgn second = contourOf(hole, HT_RGN_DIFF, &last);
    Points outer{{0, 0}, {5, 0}, {5, 5}, {0, 5}};
    const HT_ClipRgn first = contourOf(outer, -3, &second);
    for (const auto clone : {&HT_CloneRgnData, &HT_CreateRgnFromData}) {
        const RgnList copy(clone(&first));
        EXPECT_EQ(textOf(copy.get()), textOf(&first));
        for (const HT_ClipRgn *from = &first, *to = copy.get(); to != nullptr; from = from->next, to = to->next) {
            EXPECT_NE(from, to);
            EXPECT_TRUE(from->points != to->points || from->points == nullptr);
        }
        EXPECT_EQ(clone(nullptr), nullptr);
    }
    const HT_ClipRgn hollow{HT_RGN_OR, nullptr, INT32_MAX, nullptr};
    const RgnList copy(HT_CloneRgnData(&hollow));
    EXPECT_EQ(copy->points, nullptr) << "a count without points has no vertices";
    const RgnList polygon(HT_CreatePolygonRgnData(nullptr, 1000));
    EXPECT_EQ(textOf(polygon.get()), "mode 4 count 0:");
}

// The leak checker watches what was cloned before the throw.
TEST(RegionData, NegativeCountIsRefused) {
    Points points{{0, 0}, {1, 0}, {1, 1}};
    for (HT_Double_Point* bad : {points.data(), static_cast<HT_Double_Point*>(nullptr)}) {
        HT_ClipRgn third{HT_RGN_OR, nullptr, -1, bad};
        HT_ClipRgn second = contourOf(points, HT_RGN_OR, &third);
        const HT_ClipRgn first = contourOf(points, HT_RGN_OR, &second);
        EXPECT_THROW(HT_CloneRgnData(&first), std::bad_array_new_length);
        EXPECT_THROW(HT_CreatePolygonRgnData(bad, INT32_MIN), std::bad_array_new_length);
    }
}

bool isSame(const HT_Double_Rectangle& a, const HT_Double_Rectangle& b) {
    return a.minX == b.minX && a.minY == b.minY && a.maxX == b.maxX && a.maxY == b.maxY;
}

TEST(RegionData, PolygonAndRectangleAreOneContourEach) {
    const HT_Double_Point points[] = {{0, 0}, {9, 1}};
    const RgnList polygon(HT_CreatePolygonRgnData(points, 2));
    EXPECT_EQ(textOf(polygon.get()), "mode 4 count 2: 0,0 9,1");
    const RgnList rectangle(HT_CreateRectRgnData({10, 20}, {0, 0})); // corners stay as they came
    EXPECT_EQ(textOf(rectangle.get()), "mode 4 count 4: 10,20 0,20 0,0 10,0");
    EXPECT_EQ(HT_GetClipRgnData(rectangle.get()), rectangle.get());
    HT_Double_Rectangle box{};
    EXPECT_TRUE(HT_GetRgnMinRect(rectangle.get(), &box));
    EXPECT_TRUE(isSame(box, {0, 0, 10, 20}));
    UnionRectangle(box, {30, 30, -30, -30}); // turned over, it adds its low corner to the high one
    EXPECT_TRUE(isSame(box, {0, 0, 10, 20}));
    box = {30, 30, -30, -30};
    UnionRectangle(box, {0, 0, 0, 0});
    EXPECT_TRUE(isSame(box, {0, 0, 0, 0}));
}

TEST(RegionData, LongListsNeedNoStack) {
    const HT_Double_Point point{1, 2};
    RgnList list(HT_CreatePolygonRgnData(&point, 1));
    for (int i = 0; i < 200000; ++i) {
        HT_ClipRgn* const head = HT_CreatePolygonRgnData(&point, 1);
        head->next = list.release();
        list.reset(head);
    }
    const RgnList copy(HT_CloneRgnData(list.get()));
    EXPECT_EQ(HT_DeleteRgn(list.release()), 1);
    EXPECT_EQ(HT_DeleteRgn(nullptr), 1);
    ASSERT_NE(copy->next, nullptr);
}

TEST(RegionData, OnlyOneContourOfFourPointsHasAMinimumRectangle) {
    Points square{{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    Points repeated{{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}};
    HT_ClipRgn second = contourOf(square, HT_RGN_OR);
    const HT_ClipRgn two = contourOf(square, HT_RGN_OR, &second);
    const HT_ClipRgn five = contourOf(repeated, HT_RGN_OR);
    const HT_ClipRgn hollow{HT_RGN_OR, nullptr, 4, nullptr};
    for (const HT_ClipRgn* region : {&two, &five, &hollow, static_cast<const HT_ClipRgn*>(nullptr)}) {
        HT_Double_Rectangle box{1, 2, 3, 4};
        EXPECT_FALSE(HT_GetRgnMinRect(region, &box));
        EXPECT_TRUE(isSame(box, {1, 2, 3, 4}));
    }
}

} // namespace
