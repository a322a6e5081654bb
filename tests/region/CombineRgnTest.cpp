// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include "keldriver/VornRgn.h"
#include "region/GpcPolygon.h"
#include "support/RegionOracle.h"

using namespace KelDriver::Internal;

namespace {

using regionOracle::boxOf;
using regionOracle::Contours;
using regionOracle::Points;

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

CVornRgn none() {
    return {};
}

CVornRgn empty() {
    return CVornRgn(nullptr);
}

bool overlap(const HT_Double_Rectangle& a, const HT_Double_Rectangle& b) {
    return std::max(a.minX, b.minX) < std::min(a.maxX, b.maxX) && std::max(a.minY, b.minY) < std::min(a.maxY, b.maxY);
}

double areaOf(const CVornRgn& rgn) {
    double area = 0;
    for (const regionOracle::Contour& contour : regionOracle::toContours(rgn.m_pClipRgn)) {
        double twice = 0;
        for (size_t i = 0; i < contour.points.size(); ++i) {
            const HT_Double_Point& a = contour.points[i];
            const HT_Double_Point& b = contour.points[(i + 1) % contour.points.size()];
            twice += a.x * b.y - b.x * a.y;
        }
        area += (contour.mode == HT_RGN_DIFF ? -1 : 1) * std::fabs(twice) / 2;
    }
    return area;
}

std::vector<int> modesOf(const HT_ClipRgn* list) {
    std::vector<int> modes;
    for (; list; list = list->next) {
        modes.push_back(list->mode);
    }
    return modes;
}

const Points triangle = {{0, 0}, {10, 0}, {0, 10}};
const std::vector<double> zeroBox = {0, 0, 0, 0};

TEST(CombineRgn, ByKindsAndBoxes) {
    const CVornRgn field = rectangle(0, 0, 10, 10);
    const struct {
        const char* name;
        CVornRgn a, b;
        int op;
        int reported;
        std::vector<double> box;
        double area; // of the contours that the result holds
    } rows[] = {
        {"and of rectangles needs no contours", field, rectangle(5, 5, 20, 20), opAnd, 2, {5, 5, 10, 10}, 0},
        {"and of rectangles that share an edge", field, rectangle(10, 0, 20, 10), opAnd, 1, zeroBox, 0},
        {"and with an empty region", field, empty(), opAnd, 1, zeroBox, 0},
        {"and with no region", none(), rectangle(-5, -5, 5, 5), opAnd, 1, zeroBox, 0},
        {"and that leaves a rectangle", polygon(triangle), rectangle(-5, -5, 2, 2), opAnd, 2, {0, 0, 2, 2}, 4},
        {"and whose boxes alone overlap", polygon(triangle), rectangle(8, 8, 9, 9), opAnd, 1, zeroBox, 0},
        {"or of an empty region", empty(), polygon(triangle), opOr, 3, {0, 0, 10, 10}, 50},
        {"or that makes a rectangle", field, rectangle(5, 0, 20, 10), opOr, 2, {0, 0, 20, 10}, 200},
        {"xor", field, rectangle(5, 5, 20, 20), opXor, 3, {0, 0, 20, 20}, 275},
        {"xor with itself again", polygon(triangle), polygon(triangle), opXor, 1, zeroBox, 0},
        {"difference from nothing", empty(), polygon(triangle), opDiff, 1, zeroBox, 0},
        {"difference with nothing", field, empty(), opDiff, 2, {0, 0, 10, 10}, 0},
        {"difference with no region", polygon(triangle), none(), opDiff, 3, {0, 0, 10, 10}, 50},
        {"difference with one aside", polygon(triangle), rectangle(10, 0, 20, 10), opDiff, 3, {0, 0, 10, 10}, 50},
        {"difference with a hole", field, rectangle(4, 4, 6, 6), opDiff, 3, {0, 0, 10, 10}, 96},
        {"copy takes the second", field, polygon(triangle), opCopy, 3, {0, 0, 10, 10}, 50},
        {"copy of no region", field, none(), opCopy, 1, zeroBox, 0},
    };
    for (const auto& row : rows) {
        for (const char* target : {"another", "a", "b"}) {
            CVornRgn a = row.a;
            CVornRgn b = row.b;
            CVornRgn other = rectangle(70, 70, 80, 80);
            CVornRgn& result = target == std::string("a") ? a : target == std::string("b") ? b : other;
            EXPECT_EQ(result.CombineRgn(&a, &b, row.op), row.reported) << row.name << " into " << target;
            EXPECT_EQ(result.GetRgnBox(nullptr), row.reported) << row.name << " into " << target;
            EXPECT_EQ(boxOf(result), row.box) << row.name << " into " << target;
            EXPECT_DOUBLE_EQ(areaOf(result), row.area) << row.name << " into " << target;
        }
    }
}

TEST(CombineRgn, NoRegionIsCombinedAsItsBox) {
    for (const Operation op : {opOr, opXor}) {
        CVornRgn a = none(), b = rectangle(5, 5, 9, 9), other;
        EXPECT_EQ(other.CombineRgn(&a, &b, op), 3);
        EXPECT_EQ(boxOf(other), (std::vector<double>{0, 0, 9, 9}));
        EXPECT_EQ(other.m_pClipRgn, nullptr);
        ASSERT_TRUE(a.m_pClipRgn != nullptr && a.m_pClipRgn->next != nullptr);
        EXPECT_EQ(areaOf(a), 16);
    }
    CVornRgn a = none(), b = rectangle(5, 5, 9, 9);
    EXPECT_EQ(a.CombineRgn(&a, &b, opDiff), 1);
    EXPECT_EQ(a.m_nType, 0);
}

TEST(CombineRgn, ACopiedOperandBringsItsListWhateverItsKind) {
    for (const Operation op : {opOr, opXor, opCopy}) {
        for (const char* target : {"another", "a", "b"}) {
            CVornRgn a = empty();
            CVornRgn b = empty();
            const HT_ClipRgn* const list = b.GetClipRgnRef(); // a rectangle without extent
            CVornRgn other = rectangle(70, 70, 80, 80);
            CVornRgn& result = target == std::string("a") ? a : target == std::string("b") ? b : other;
            EXPECT_EQ(result.CombineRgn(&a, &b, op), 1) << target;
            EXPECT_EQ(result.m_nType, 3) << target;
            ASSERT_NE(result.m_pClipRgn, nullptr) << target;
            EXPECT_EQ(result.m_pClipRgn == list, &result == &b) << target;
            EXPECT_EQ(result.m_pClipRgn->pointCount, 4) << target;
        }
    }
}

// The clipper's result is evaluated like any other list: shared and almost shared edges can leave contours that join.
TEST(CombineRgn, ResultsAreEvaluatedLists) {
    regionOracle::Generator generator(6);
    constexpr gpc_op operations[] = {GPC_INT, GPC_UNION, GPC_XOR, GPC_DIFF};
    for (int i = 0; i < 4000; ++i) {
        Points first = generator.region({HT_RGN_XOR}).back().points;
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

        CVornRgn result;
        ASSERT_EQ(result.CombineRgn(&a, &b, op), kind) << i;
        ASSERT_EQ(boxOf(result), (std::vector<double>{box.minX, box.minY, box.maxX, box.maxY})) << i;
        ASSERT_EQ(modesOf(result.m_pClipRgn), modesOf(list.get())) << i;
    }
}

TEST(CombineRgn, AnEmptyRegionWithItselfStaysEmpty) {
    for (const Operation op : {opAnd, opOr, opXor, opDiff, opCopy}) {
        CVornRgn rgn = empty();
        const HT_ClipRgn* const list = rgn.GetClipRgnRef();
        EXPECT_EQ(rgn.CombineRgn(&rgn, &rgn, op), 1) << op;
        EXPECT_EQ(rgn.m_nType, 3) << op;
        EXPECT_EQ(rgn.m_pClipRgn, op == opAnd || op == opDiff ? nullptr : list) << op;
        EXPECT_EQ(boxOf(rgn), zeroBox) << op;
    }
}

TEST(CombineRgn, RectanglesKeepTheirCoordinatesBitForBit) {
    regionOracle::Generator generator(5);
    for (int i = 0; i < 2000; ++i) {
        const Points a = generator.region({HT_RGN_XOR}).front().points;
        const double unit = std::fabs(a[0].x) + std::fabs(a[0].y);
        double x[4];
        double y[4];
        std::generate(std::begin(x), std::end(x), [&] { return a[0].x + unit * generator.real(-1, 1); });
        std::generate(std::begin(y), std::end(y), [&] { return a[0].y + unit * generator.real(-1, 1); });
        const auto asPolygon = [](double x0, double y0, double x1, double y1) {
            return polygon({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
        };
        for (const int op : {opAnd, opOr, opXor, opDiff}) {
            CVornRgn first = asPolygon(x[0], y[0], x[1], y[1]);
            CVornRgn second = asPolygon(x[2], y[2], x[3], y[3]);
            first.m_nType = 2; // takes the way through the clipper
            CVornRgn result;
            result.CombineRgn(&first, &second, op);
            for (const HT_ClipRgn* node = result.m_pClipRgn; node; node = node->next) {
                for (int k = 0; k < node->pointCount; ++k) {
                    EXPECT_NE(std::find(std::begin(x), std::end(x), node->points[k].x), std::end(x));
                    EXPECT_NE(std::find(std::begin(y), std::end(y), node->points[k].y), std::end(y));
                }
            }
        }
    }
}

TEST(CombineRgn, AnUnknownOperationChangesNothing) {
    CVornRgn rgn = rectangle(1, 2, 3, 4);
    CVornRgn other = polygon(triangle);
    for (const int op : {0, 6, -1, 256 + 1}) {
        EXPECT_EQ(rgn.CombineRgn(&other, &other, op), 2) << op;
        EXPECT_EQ(boxOf(rgn), (std::vector<double>{1, 2, 3, 4})) << op;
    }
}

TEST(CombineRgn, NullOperandsCountAsEmpty) {
    CVornRgn rgn;
    CVornRgn other = polygon(triangle);
    EXPECT_EQ(rgn.CombineRgn(nullptr, &other, opCopy), 3);
    EXPECT_EQ(rgn.CombineRgn(nullptr, &other, opOr), 3);
    EXPECT_EQ(rgn.CombineRgn(&other, nullptr, opXor), 3);
    EXPECT_EQ(rgn.CombineRgn(&other, nullptr, opAnd), 1);
    EXPECT_EQ(rgn.CombineRgn(nullptr, nullptr, opDiff), 1);
}

// Regions whose boxes do not overlap are collected in the first operand itself.
TEST(CombineRgn, RegionsApartLengthenTheFirstOperand) {
    const Points farTriangle = {{20, 0}, {30, 0}, {20, 10}};
    const std::vector<double> commonBox = {0, 0, 30, 10};
    const std::vector<int> bothModes = {HT_RGN_XOR, HT_RGN_OR};
    for (const Operation op : {opOr, opXor}) {
        for (const std::string target : {"another", "a", "b"}) {
            CVornRgn a = polygon(triangle);
            CVornRgn b = polygon(farTriangle);
            CVornRgn other = rectangle(1, 1, 2, 2);
            CVornRgn& result = target == "a" ? a : target == "b" ? b : other;
            EXPECT_EQ(result.CombineRgn(&a, &b, op), 3) << target;
            EXPECT_EQ(boxOf(result), commonBox) << target;
            EXPECT_EQ(modesOf(a.m_pClipRgn), bothModes) << target;
            EXPECT_EQ(a.m_pClipRgn->next->points[0].x, 20) << target;
            if (&result != &a) {
                EXPECT_EQ(result.m_pClipRgn, nullptr) << target;
                EXPECT_EQ(boxOf(a), (std::vector<double>{0, 0, 10, 10})) << target;
                EXPECT_EQ(result.GetClipRgnRef()->points[2].x, 30) << "the common box, as a rectangle, into " << target;
            }
        }
        CVornRgn a = rectangle(0, 0, 10, 10), b = rectangle(20, 0, 30, 10); // get their contours first
        EXPECT_EQ(a.CombineRgn(&a, &b, op), 3);
        EXPECT_EQ(boxOf(a), commonBox);
        EXPECT_DOUBLE_EQ(areaOf(a), 200);
        EXPECT_EQ(modesOf(a.m_pClipRgn), bothModes);
        CVornRgn flat = rectangle(0, 5, 10, 5);
        EXPECT_EQ(flat.CombineRgn(&flat, &flat, op), 3);
        EXPECT_EQ(boxOf(flat), (std::vector<double>{0, 5, 10, 5}));
        EXPECT_EQ(modesOf(flat.m_pClipRgn).size(), 2U);
    }
}

} // namespace
