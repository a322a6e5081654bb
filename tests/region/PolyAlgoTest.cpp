// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include "gpc.h"
#include "keldriver/VornRgn.h"
#include "region/GpcPolygon.h"
#include "support/RegionCases.h"

using namespace KelDriver::Internal;

namespace {

std::string textOf(const gpc_polygon& polygon) {
    std::string text;
    for (int i = 0; i < polygon.num_contours; ++i) {
        text += text.empty() ? "" : " / ";
        text += polygon.hole[i] != 0 ? "hole" : "outer";
        for (int k = 0; k < polygon.contour[i].num_vertices; ++k) {
            const gpc_vertex& vertex = polygon.contour[i].vertex[k];
            text += " " + plotText::number(vertex.x) + "," + plotText::number(vertex.y);
        }
    }
    return text;
}

TEST(PolyAlgo, ListsBecomePolygonsWithHolesBehindTheFirst) {
    const RgnList list =
        regionOracle::toList(regionCases::contoursOf("2 0,0 9,0 9,9 / 2 2,2 6,2 6,6 / 0x102 7,5 8,9 / 3"));
    const GpcPolygonPtr polygon(PolyAlgoOperator::convert_2_gpc_polygon(list.get()));
    EXPECT_EQ(textOf(*polygon), "outer 0,0 9,0 9,9 / hole 2,2 6,2 6,6 / outer 7,5 8,9 / outer");
    EXPECT_EQ(polygon->contour[3].vertex, nullptr);
    const GpcPolygonPtr simple(PolyAlgoOperator::convert_2_gpc_polygon_simple(list->next));
    EXPECT_EQ(textOf(*simple), "outer 2,2 6,2 6,6");
    HT_ClipRgn withoutPoints{3, nullptr, 5, nullptr};
    const GpcPolygonPtr nothing(PolyAlgoOperator::convert_2_gpc_polygon_simple(&withoutPoints));
    EXPECT_EQ(textOf(*nothing), "outer");
    const GpcPolygonPtr ofNull(PolyAlgoOperator::convert_2_gpc_polygon(nullptr));
    EXPECT_TRUE(ofNull->num_contours == 0 && ofNull->hole == nullptr && ofNull->contour == nullptr);
}

TEST(PolyAlgo, PolygonsBecomeListsOfOuterContoursAndHoles) {
    gpc_vertex vertices[] = {{1, 2}, {3, 4}, {5, 6}};
    gpc_vertex_list contours[] = {{3, vertices}, {2, vertices + 1}, {0, nullptr}};
    int holes[] = {1, 0, 0};
    gpc_polygon polygon{3, holes, contours};
    EXPECT_EQ(regionCases::textOf(RgnList(PolyAlgoOperator::convert_2_Clip_Rgn(&polygon)).get()),
              "2 1,2 3,4 5,6 / 3 3,4 5,6 / 3");
    polygon.num_contours = 0;
    gpc_polygon hollow{2, nullptr, nullptr};
    for (gpc_polygon* const none : {&polygon, &hollow, static_cast<gpc_polygon*>(nullptr)}) {
        EXPECT_EQ(PolyAlgoOperator::convert_2_Clip_Rgn(none), nullptr);
    }
}

} // namespace
