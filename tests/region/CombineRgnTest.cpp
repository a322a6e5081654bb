// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include "keldriver/VornRgn.h"
#include "region/GpcPolygon.h"
#include "support/RegionOracle.h"

using namespace KelDriver::Internal;

namespace {

using regionOracle::boxOf;
using regionOracle::Points;
using Box = std::vector<double>;

enum Operation { opAnd = 1, opOr = 2, opXor = 3, opDiff = 4, opCopy = 5 };

CVornRgn rectangle(double minX, double minY, double maxX, double maxY) {
    CVornRgn rgn;
    rgn.CreateRectRgn(minX, minY, maxX, maxY);
    return rgn;
}

CVornRgn polygon(const Points& points) {
    CVornRgn rgn;
    rgn.CreatePolygonRgn(points.data(), static_cast<int>(points.size()), 1);
    return rgn;
}

std::vector<int> modesOf(const HT_ClipRgn* list) {
    std::vector<int> modes;
    for (; list; list = list->next) {
        modes.push_back(list->mode);
    }
    return modes;
}

bool overlap(const HT_Double_Rectangle& a, const HT_Double_Rectangle& b) {
    return std::max(a.minX, b.minX) < std::min(a.maxX, b.maxX) && std::max(a.minY, b.minY) < std::min(a.maxY, b.maxY);
}

const Points triangle = {{0, 0}, {10, 0}, {0, 10}};

TEST(CombineRgn, NoRegionIsCombinedAsItsBox) {
    for (const Operation op : {opOr, opXor}) {
        CVornRgn none, other, b = rectangle(5, 5, 9, 9);
        EXPECT_EQ(other.CombineRgn(&none, &b, op), 3);
        EXPECT_EQ(boxOf(other), (Box{0, 0, 9, 9}));
        EXPECT_EQ(other.m_pClipRgn, nullptr);
        EXPECT_EQ(modesOf(none.m_pClipRgn), (std::vector<int>{HT_RGN_XOR, HT_RGN_OR}));
    }
    CVornRgn none, b = rectangle(5, 5, 9, 9);
    EXPECT_EQ(none.CombineRgn(&none, &b, opDiff), 1);
    EXPECT_EQ(none.m_nType, 0);
}

TEST(CombineRgn, ACopiedOperandBringsItsListWhateverItsKind) {
    for (const Operation op : {opOr, opXor, opCopy}) {
        for (const int target : {0, 1, 2}) {
            CVornRgn regions[] = {rectangle(70, 70, 80, 80), CVornRgn(nullptr), CVornRgn(nullptr)};
            CVornRgn& result = regions[target];
            const HT_ClipRgn* const list = regions[2].GetClipRgnRef(); // a rectangle without extent
            EXPECT_EQ(result.CombineRgn(&regions[1], &regions[2], op), 1) << target;
            EXPECT_EQ(result.m_nType, 3) << target;
            ASSERT_NE(result.m_pClipRgn, nullptr) << target;
            EXPECT_EQ(result.m_pClipRgn == list, target == 2) << target;
            EXPECT_EQ(result.m_pClipRgn->pointCount, 4) << target;
            EXPECT_EQ(result.CombineRgn(&result, &result, op), 1) << target;
            EXPECT_NE(result.m_pClipRgn, nullptr) << "itself with itself";
        }
    }
}

// The clipper's result is evaluated like any other list: shared and almost shared edges can leave contours that join.
TEST(CombineRgn, ResultsAreEvaluatedLists) {
    regionOracle::Generator generator(6);
    constexpr gpc_op operations[] = {GPC_INT, GPC_UNION, GPC_XOR, GPC_DIFF};
    for (int i = 0; i < 4000; ++i) {
        const Points first = generator.region({HT_RGN_XOR}).back().points;
        Points second = first;
        for (HT_Double_Point& point : second) { // the next double, another point, or the same
            const int change = generator.integer(0, 3);
            point.x = change == 1 ? std::nextafter(point.x, INFINITY) : point.x;
            point = change == 2 ? generator.pointIn({{HT_RGN_XOR, first}}) : point;
        }
        CVornRgn a = polygon(first);
        CVornRgn b = polygon(second);
        a.m_nType = 2; // not joined as boxes
        const int op = generator.integer(opAnd, opDiff);
        if (!overlap(a.m_rcBox, b.m_rcBox)) {
            continue;
        }
        const GpcPolygonPtr subject(PolyAlgoOperator::convert_2_gpc_polygon(a.m_pClipRgn));
        const GpcPolygonPtr other(PolyAlgoOperator::convert_2_gpc_polygon(b.m_pClipRgn));
        const GpcPolygonPtr clipped = combine(operations[op - 1], subject, other);
        const RgnList list(PolyAlgoOperator::convert_2_Clip_Rgn(clipped.get()));
        HT_Double_Rectangle box{};
        const int kind = !list ? 1 : KelDriver::HT_StandardClipRgn(list.get(), &box) ? 2 : 3;

        CVornRgn result = rectangle(1, 2, 3, 4);
        ASSERT_EQ(result.CombineRgn(&a, &b, op), kind) << i;
        ASSERT_EQ(boxOf(result), (Box{box.minX, box.minY, box.maxX, box.maxY})) << i;
        ASSERT_EQ(modesOf(result.m_pClipRgn), modesOf(list.get())) << i;
    }
}

TEST(CombineRgn, RectanglesKeepTheirCoordinatesBitForBit) {
    regionOracle::Generator generator(5);
    for (int i = 0; i < 2000; ++i) {
        const HT_Double_Point origin = generator.region({HT_RGN_XOR}).front().points[0];
        const double unit = std::fabs(origin.x) + std::fabs(origin.y);
        std::vector<double> x(4), y(4);
        std::generate(x.begin(), x.end(), [&] { return origin.x + unit * generator.real(-1, 1); });
        std::generate(y.begin(), y.end(), [&] { return origin.y + unit * generator.real(-1, 1); });
        for (const int op : {opAnd, opOr, opXor, opDiff}) {
            CVornRgn first = polygon({{x[0], y[0]}, {x[1], y[0]}, {x[1], y[1]}, {x[0], y[1]}});
            CVornRgn second = polygon({{x[2], y[2]}, {x[3], y[2]}, {x[3], y[3]}, {x[2], y[3]}});
            first.m_nType = 2; // takes the way through the clipper
            CVornRgn result;
            result.CombineRgn(&first, &second, op);
            for (const regionOracle::Contour& contour : regionOracle::toContours(result.m_pClipRgn)) {
                for (const HT_Double_Point& p : contour.points) {
                    EXPECT_NE(std::find(x.begin(), x.end(), p.x), x.end());
                    EXPECT_NE(std::find(y.begin(), y.end(), p.y), y.end());
                }
            }
        }
    }
}

TEST(CombineRgn, UnknownOperationsChangeNothingAndNullOperandsCountAsEmpty) {
    CVornRgn rgn = rectangle(1, 2, 3, 4);
    CVornRgn other = polygon(triangle);
    for (const int op : {0, 6, -1, 256 + 1}) {
        EXPECT_EQ(rgn.CombineRgn(&other, &other, op), 2) << op;
        EXPECT_EQ(boxOf(rgn), (Box{1, 2, 3, 4})) << op;
    }
    EXPECT_EQ(rgn.CombineRgn(nullptr, &other, opCopy), 3);
    EXPECT_EQ(rgn.CombineRgn(nullptr, &other, opOr), 3);
    EXPECT_EQ(rgn.CombineRgn(&other, nullptr, opXor), 3);
    EXPECT_EQ(rgn.CombineRgn(&other, nullptr, opAnd), 1);
    EXPECT_EQ(rgn.CombineRgn(nullptr, nullptr, opDiff), 1);
}

// Regions whose boxes do not overlap are collected in the first operand itself.
TEST(CombineRgn, RegionsApartLengthenTheFirstOperand) {
    const Points farTriangle = {{20, 0}, {30, 0}, {20, 10}};
    const std::vector<int> bothModes = {HT_RGN_XOR, HT_RGN_OR};
    for (const Operation op : {opOr, opXor}) {
        for (const int target : {0, 1, 2}) {
            CVornRgn regions[] = {rectangle(1, 1, 2, 2), polygon(triangle), polygon(farTriangle)};
            CVornRgn& result = regions[target];
            CVornRgn& a = regions[1];
            EXPECT_EQ(result.CombineRgn(&a, &regions[2], op), 3) << target;
            EXPECT_EQ(boxOf(result), (Box{0, 0, 30, 10})) << target;
            EXPECT_EQ(modesOf(a.m_pClipRgn), bothModes) << target;
            EXPECT_EQ(a.m_pClipRgn->next->points[0].x, 20) << target;
            if (target != 1) {
                EXPECT_EQ(result.m_pClipRgn, nullptr) << target;
                EXPECT_EQ(boxOf(a), (Box{0, 0, 10, 10})) << target;
                EXPECT_EQ(result.GetClipRgnRef()->points[2].x, 30) << "the common box, as a rectangle, into " << target;
            }
        }
        CVornRgn flat = rectangle(0, 5, 10, 5); // gets its contour first
        EXPECT_EQ(flat.CombineRgn(&flat, &flat, op), 3);
        EXPECT_EQ(boxOf(flat), (Box{0, 5, 10, 5}));
        EXPECT_EQ(modesOf(flat.m_pClipRgn), bothModes);
    }
}

} // namespace
