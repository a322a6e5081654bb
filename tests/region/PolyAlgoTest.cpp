// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include "gpc.h"
#include "keldriver/VornRgn.h"
#include "region/GpcPolygon.h"
#include "support/RegionOracle.h"

using namespace KelDriver::Internal;

namespace {

using regionOracle::Contours;
using regionOracle::Points;

const Points first = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
const Points second = {{2, 2}, {6, 2}, {6, 6}};
const Points third = {{20, 0}, {30, 0}, {30, 10}, {20, 10}, {18, 5}};

/// Mode and number of points of each contour, "3:4 2:3".
std::string summaryOf(const HT_ClipRgn* rgn) {
    std::string text;
    for (; rgn; rgn = rgn->next) {
        text += (text.empty() ? "" : " ") + std::to_string(rgn->mode) + ":" + std::to_string(rgn->pointCount);
    }
    return text;
}

TEST(PolyAlgo, ListsBecomePolygonsWithHolesBehindTheFirst) {
    const RgnList list = regionOracle::toList({{2, first}, {2, second}, {0x102, third}, {3, {}}});
    const GpcPolygonPtr polygon(PolyAlgoOperator::convert_2_gpc_polygon(list.get()));
    ASSERT_EQ(polygon->num_contours, 4);
    EXPECT_EQ(std::vector<int>(polygon->hole, polygon->hole + 4), (std::vector<int>{0, 1, 0, 0}));
    EXPECT_EQ(polygon->contour[1].num_vertices, 3);
    EXPECT_EQ(polygon->contour[1].vertex[2].y, 6);
    EXPECT_EQ(polygon->contour[2].vertex[4].x, 18);
    EXPECT_EQ(polygon->contour[3].num_vertices, 0);
    EXPECT_EQ(polygon->contour[3].vertex, nullptr);

    const GpcPolygonPtr simple(PolyAlgoOperator::convert_2_gpc_polygon_simple(list->next));
    ASSERT_EQ(simple->num_contours, 1);
    EXPECT_EQ(simple->hole[0], 0);
    EXPECT_EQ(simple->contour[0].vertex[1].x, 6);

    HT_ClipRgn withoutPoints{3, nullptr, 5, nullptr};
    const GpcPolygonPtr nothing(PolyAlgoOperator::convert_2_gpc_polygon_simple(&withoutPoints));
    EXPECT_EQ(nothing->contour[0].num_vertices, 0);

    const GpcPolygonPtr ofNull(PolyAlgoOperator::convert_2_gpc_polygon(nullptr));
    EXPECT_EQ(ofNull->num_contours, 0);
    EXPECT_EQ(ofNull->hole, nullptr);
    EXPECT_EQ(ofNull->contour, nullptr);
}

TEST(PolyAlgo, PolygonsBecomeListsOfOuterContoursAndHoles) {
    gpc_vertex vertices[] = {{1, 2}, {3, 4}, {5, 6}};
    gpc_vertex_list contours[] = {{3, vertices}, {2, vertices + 1}, {0, nullptr}};
    int holes[] = {1, 0, 0};
    gpc_polygon polygon{3, holes, contours};
    const RgnList list(PolyAlgoOperator::convert_2_Clip_Rgn(&polygon));
    EXPECT_EQ(summaryOf(list.get()), "2:3 3:2 3:0");
    EXPECT_EQ(list->next->points[1].y, 6);

    polygon.num_contours = 0;
    gpc_polygon hollow{2, nullptr, nullptr};
    for (gpc_polygon* const none : {&polygon, &hollow, static_cast<gpc_polygon*>(nullptr)}) {
        EXPECT_EQ(PolyAlgoOperator::convert_2_Clip_Rgn(none), nullptr);
    }
}

TEST(PolyAlgo, OrderBorderPutsTheFirstOuterContourFirst) {
    const struct {
        const char* name;
        std::vector<int> modes; // of contours of 3, 4, 5 … points
        const char* expected;
    } rows[] = {
        {"an outer one first", {3, 2}, "3:3 2:4"},
        {"two holes, then an outer one", {2, 2, 3}, "3:5 2:4 2:3"},
        {"of several the nearest", {2, 0, 3}, "0:4 2:3 3:5"},
        {"holes only", {2, 2}, "2:3 2:4"},
    };
    for (const auto& row : rows) {
        Contours contours;
        for (const int mode : row.modes) {
            contours.push_back({mode, Points(contours.size() + 3)});
        }
        const RgnList list = regionOracle::toList(contours);
        OrderBorder(list.get());
        EXPECT_EQ(summaryOf(list.get()), row.expected) << row.name;
    }
    OrderBorder(nullptr);
}

TEST(PolyAlgo, EvaluatesInPlace) {
    const Points middle = {{2, 2}, {6, 2}, {6, 6}, {2, 6}};
    const struct {
        const char* name;
        Contours contours;
        const char* expected;
    } rows[] = {
        {"one node is left alone", {{2, second}}, "2:3"},
        {"a hole given first", {{2, second}, {3, first}}, "3:4 2:3"},
        {"an island in a hole comes last", {{4, {{3, 3}, {4, 3}, {4, 4}}}, {4, middle}, {4, first}}, "3:4 2:4 3:3"},
        {"bracket bits and unknown modes", {{3, second}, {0x103, first}, {5, first}, {-1, first}}, "3:3"},
        {"nothing is left", {{3, second}, {0, third}}, "3:0"},
        {"nothing at all", {{3, {}}, {4, {}}}, "3:0"},
        {"a copy of nothing", {{3, first}, {1, {}}}, "3:0"},
    };
    for (const auto& row : rows) {
        const RgnList list = regionOracle::toList(row.contours);
        EXPECT_EQ(PolyAlgoOperator::ClipRgnOperator(list.get()), list.get()) << row.name;
        EXPECT_EQ(summaryOf(list.get()), row.expected) << row.name;
    }
    EXPECT_EQ(PolyAlgoOperator::ClipRgnOperator(nullptr), nullptr);
}

TEST(PolyAlgo, StandardClipRgnTellsRectangles) {
    const std::vector<double> untouched(4, -7.0);
    const Points beside = {{10, 0}, {15, 0}, {15, 10}, {10, 10}};
    const struct {
        const char* name;
        Contours contours;
        bool isRect;
        std::vector<double> box;
    } rows[] = {
        {"a rectangle", {{4, first}}, true, {0, 0, 10, 10}},
        {"a triangle", {{4, second}}, false, {2, 2, 6, 6}},
        {"its first point repeated", {{4, {{0, 0}, {9, 0}, {9, 8}, {0, 8}, {0, 0}}}}, false, {0, 0, 9, 8}},
        {"two contours that make a rectangle", {{3, first}, {3, beside}}, true, {0, 0, 15, 10}},
        {"two contours that stay two", {{3, first}, {3, third}}, false, {0, 0, 30, 10}},
        {"a first contour without points", {{3, {}}, {3, first}}, false, untouched},
        {"nothing left", {{3, first}, {2, first}}, false, untouched},
    };
    for (const auto& row : rows) {
        const RgnList list = regionOracle::toList(row.contours);
        HT_Double_Rectangle box{-7, -7, -7, -7};
        EXPECT_EQ(KelDriver::HT_StandardClipRgn(list.get(), &box), row.isRect) << row.name;
        EXPECT_EQ((std::vector<double>{box.minX, box.minY, box.maxX, box.maxY}), row.box) << row.name;
        const RgnList again = regionOracle::toList(row.contours);
        EXPECT_EQ(KelDriver::HT_StandardClipRgn(again.get(), nullptr), row.isRect) << row.name;
    }
    HT_Double_Rectangle box{};
    EXPECT_FALSE(KelDriver::HT_StandardClipRgn(nullptr, &box));
}

} // namespace
