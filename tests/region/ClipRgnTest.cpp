// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>
#include <limits>
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

constexpr double infinity = std::numeric_limits<double>::infinity();

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

std::string textOf(const HT_Double_Rectangle& rect) {
    char text[160];
    std::snprintf(text, sizeof text, "%.17g %.17g %.17g %.17g", rect.minX, rect.minY, rect.maxX, rect.maxY);
    return text;
}

constexpr HT_Double_Rectangle untouched{1, 2, 3, 4};
const char* const untouchedText = "1 2 3 4";

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
}

TEST(RegionData, CountWithoutPointsHasNoVertices) {
    const HT_ClipRgn hollow{HT_RGN_OR, nullptr, INT32_MAX, nullptr};
    const RgnList copy(HT_CloneRgnData(&hollow));
    EXPECT_EQ(copy->points, nullptr);
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

TEST(RegionData, PolygonAndRectangleAreOneContourEach) {
    const HT_Double_Point points[] = {{0, 0}, {9, 1}};
    const RgnList polygon(HT_CreatePolygonRgnData(points, 2));
    EXPECT_EQ(textOf(polygon.get()), "mode 4 count 2: 0,0 9,1");
    const RgnList rectangle(HT_CreateRectRgnData({10, 20}, {0, 0})); // corners stay as they came
    EXPECT_EQ(textOf(rectangle.get()), "mode 4 count 4: 10,20 0,20 0,0 10,0");
    HT_Double_Rectangle box = untouched;
    EXPECT_TRUE(HT_GetRgnMinRect(rectangle.get(), &box));
    EXPECT_EQ(textOf(box), "0 0 10 20");
    EXPECT_EQ(HT_GetClipRgnData(rectangle.get()), rectangle.get());
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

TEST(RegionData, PointsRectIsTheBoundingBox) {
    const struct {
        const char* name;
        Points points;
        int count;
        int result;
        const char* box;
    } rows[] = {
        {"no count", {{5, 6}}, 0, 0, untouchedText},
        {"no points", {}, 3, 0, untouchedText},
        {"negative count: the first point", {{5, -6}, {9, 9}}, -7, 1, "5 -6 5 -6"},
        {"falling then rising", {{5, 5}, {4, 6}, {-1, 3}, {8, 9}}, 4, 1, "-1 3 8 9"},
        {"infinite", {{0, 0}, {infinity, -infinity}}, 2, 1, "0 -inf inf 0"},
        {"undefined vertex is left out", {{0, 0}, {std::nan(""), 4}}, 2, 1, "0 0 0 4"},
    };
    for (const auto& row : rows) {
        HT_Double_Rectangle box = untouched;
        EXPECT_EQ(HT_GetPointsRect(row.points.empty() ? nullptr : row.points.data(), row.count, &box), row.result)
            << row.name;
        EXPECT_EQ(textOf(box), row.box) << row.name;
    }
}

TEST(RegionData, IsARectangleWhereBothDiagonalsSpanTheBox) {
    constexpr double tolerance = 1e-10;
    const struct {
        const char* name;
        Points points;
        bool isRect;
        const char* box;
    } rows[] = {
        {"clockwise", {{0, 0}, {4, 0}, {4, 2}, {0, 2}}, true, "0 0 4 2"},
        {"the other way, from another corner", {{4, 2}, {4, 0}, {0, 0}, {0, 2}}, true, "0 0 4 2"},
        {"away from the origin", {{4, 3}, {9, 3}, {9, 8}, {4, 8}}, true, "4 3 9 8"},
        {"bow tie: neighbours exchanged", {{0, 0}, {4, 2}, {4, 0}, {0, 2}}, false, "0 0 4 2"},
        {"diamond", {{0, 0}, {2, 1}, {4, 0}, {2, -1}}, false, "0 -1 4 1"},
        {"first diagonal too short", {{0, 0}, {4, 0}, {3, 2}, {0, 2}}, false, "0 0 4 2"},
        {"second diagonal too short", {{0, 0}, {3, 0}, {4, 2}, {0, 2}}, false, "0 0 4 2"},
        {"no height", {{0, 0}, {4, 0}, {4, 0}, {0, 0}}, true, "0 0 4 0"},
        {"off by less than the tolerance", {{0, 0}, {1, 0}, {1, 1}, {9e-11, 1}}, true, "0 0 1 1"},
        {"off by the tolerance itself", {{0, 0}, {0, 0}, {0, 0}, {tolerance, 0}}, false, "0 0 1e-10 0"},
        {"undefined corner", {{0, 0}, {4, std::nan("")}, {4, 2}, {0, 2}}, false, "0 0 4 2"},
        {"infinite", {{0, 0}, {infinity, 0}, {infinity, 2}, {0, 2}}, false, "0 0 inf 2"},
    };
    for (const auto& row : rows) {
        Points points = row.points;
        HT_Double_Rectangle box = untouched;
        EXPECT_EQ(IsRect(points.data(), &box), row.isRect) << row.name;
        EXPECT_EQ(textOf(box), row.box) << row.name;
        EXPECT_EQ(IsRect(points.data(), nullptr), row.isRect) << row.name;
    }
}

TEST(RegionData, OnlyOneContourOfFourPointsHasAMinimumRectangle) {
    Points square{{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    Points repeated{{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}};
    HT_ClipRgn second = contourOf(square, HT_RGN_OR);
    const HT_ClipRgn two = contourOf(square, HT_RGN_OR, &second);
    const HT_ClipRgn five = contourOf(repeated, HT_RGN_OR);
    const HT_ClipRgn hollow{HT_RGN_OR, nullptr, 4, nullptr};
    for (const HT_ClipRgn* region : {&two, &five, &hollow, static_cast<const HT_ClipRgn*>(nullptr)}) {
        HT_Double_Rectangle box = untouched;
        EXPECT_FALSE(HT_GetRgnMinRect(region, &box));
        EXPECT_EQ(textOf(box), untouchedText);
    }
}

TEST(Rectangles, UnionHoldsTheCornersOfInvertedOnesAsTheyAre) {
    HT_Double_Rectangle box{0, -5, 20, 10};
    UnionRectangle(box, {30, 30, -30, -30});
    EXPECT_EQ(textOf(box), "0 -5 20 10");
    HT_Double_Rectangle inverted{30, 30, -30, -30};
    UnionRectangle(inverted, {0, 0, 0, 0});
    EXPECT_EQ(textOf(inverted), "0 0 0 0");
}

} // namespace
