// SPDX-License-Identifier: BSD-3-Clause
#include <map>

#include <gtest/gtest.h>

#include "host/tarsel/Polygon.h"
#include "keldriver/VornRgn.h"
#include "support/RegionOracle.h"

// What a list of contours becomes, contour by contour.

namespace {

using regionOracle::Contour;
using regionOracle::Contours;
using regionOracle::Generator;

bool isSame(const Contours& a, const Contours& b) {
    const auto isSamePoint = [](const HT_Double_Point& p, const HT_Double_Point& q) {
        return p.x == q.x && p.y == q.y;
    };
    const auto isSameContour = [&](const Contour& p, const Contour& q) {
        return p.mode == q.mode &&
               std::equal(p.points.begin(), p.points.end(), q.points.begin(), q.points.end(), isSamePoint);
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), isSameContour);
}

Polygon polygonOf(const Contour& contour) {
    Polygon polygon{{{}}, {false}};
    for (const HT_Double_Point& point : contour.points) {
        polygon.contours[0].push_back({point.x, point.y});
    }
    return polygon;
}

/// The list's contours from left to right, each joined by one call of the clipper.
Contours joinedOneByOne(const Contours& list) {
    const std::map<int, gpc_op> operations = {
        {HT_RGN_AND, GPC_INT}, {HT_RGN_DIFF, GPC_DIFF}, {HT_RGN_OR, GPC_UNION}, {HT_RGN_XOR, GPC_XOR}};
    Polygon joined = polygonOf(list.front());
    for (size_t i = 1; i < list.size(); ++i) {
        const auto operation = operations.find(list[i].mode);
        if (list[i].mode == HT_RGN_COPY) {
            joined = polygonOf(list[i]);
        } else if (operation != operations.end()) {
            joined = clip(operation->second, joined, polygonOf(list[i]));
        }
    }
    Contours contours;
    for (size_t i = 0; i < joined.contours.size(); ++i) {
        contours.push_back({joined.holes[i] ? HT_RGN_DIFF : HT_RGN_OR, {}});
        for (const gpc_vertex& vertex : joined.contours[i]) {
            contours.back().points.push_back({vertex.x, vertex.y});
        }
    }
    return contours.empty() ? Contours{{HT_RGN_OR, {}}} : contours;
}

TEST(ListEvaluation, IsOneCallOfTheClipperForEachLaterContour) {
    const std::vector<int> codes = {HT_RGN_AND, HT_RGN_COPY, HT_RGN_DIFF, HT_RGN_DIFF, HT_RGN_OR,        HT_RGN_OR,
                                    HT_RGN_OR,  HT_RGN_XOR,  HT_RGN_XOR,  7,           HT_RGN_OR | 0x100};
    Generator generator(11);
    for (int i = 0; i < 20000; ++i) {
        const Contours given = generator.region(codes);
        const RgnList list = regionOracle::toList(given);
        const Contours result = regionOracle::toContours(PolyAlgoOperator::ClipRgnOperator(list.get()));
        const Contours expected = given.size() == 1 ? given : joinedOneByOne(regionOracle::outerFirst(given));
        ASSERT_TRUE(isSame(result, expected)) << "list " << i;
    }
}

} // namespace
