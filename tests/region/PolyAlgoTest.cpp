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
    const Contours made = regionOracle::toContours(list.get());
    ASSERT_EQ(made.size(), 3U);
    EXPECT_TRUE(made[0].mode == HT_RGN_DIFF && made[1].mode == HT_RGN_OR && made[2].mode == HT_RGN_OR);
    EXPECT_TRUE(made[0].points.size() == 3 && made[1].points.at(1).y == 6 && made[2].points.empty());

    polygon.num_contours = 0;
    gpc_polygon hollow{2, nullptr, nullptr};
    for (gpc_polygon* const none : {&polygon, &hollow, static_cast<gpc_polygon*>(nullptr)}) {
        EXPECT_EQ(PolyAlgoOperator::convert_2_Clip_Rgn(none), nullptr);
    }
}

} // namespace
