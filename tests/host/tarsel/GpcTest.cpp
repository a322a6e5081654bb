// SPDX-License-Identifier: BSD-3-Clause
#include "gpc.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "Polygon.h"

namespace {

using Contour = Polygon::Contour;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();

Contour rectangle(double x0, double y0, double x1, double y1) {
    return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}

TEST(Gpc, CoordinatesComeBackAsGivenOrAsTheSmallestOfAGridLine) {
    const double nearby = std::nextafter(1.0, 2.0);
    Polygon a{{rectangle(1.0, -0.0, 1e6, 1)}, {}};
    Polygon b{{rectangle(nearby, 0, 1e6, 2)}, {}};
    for (int round = 0; round < 2; ++round, std::swap(a, b)) {
        const Polygon result = clip(GPC_INT, a, b);
        for (const gpc_vertex& vertex : result.contours.at(0)) {
            EXPECT_TRUE(vertex.x == 1.0 || vertex.x == 1e6) << vertex.x;
            EXPECT_TRUE(vertex.y == 1.0 || (vertex.y == 0.0 && !std::signbit(vertex.y))) << vertex.y;
        }
    }
}

TEST(Gpc, ContoursThatEncloseNothingCountAsAbsent) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Contour contours[] = {{},
                                {{0, 0}, {9, 9}},
                                {{0, 0}, {9, nan}, {9, 9}},
                                {{0, 0}, {infinity, 0}, {9, 9}},
                                {{3, 3}, {3, 3}, {3, 3}, {3, 3}},
                                {{0, 0}, {5, 5}, {9, 9}}};
    for (const Contour& contour : contours) {
        EXPECT_DOUBLE_EQ(clip(GPC_UNION, {{contour}, {}}, {{rectangle(1, 1, 2, 2)}, {}}).area(), 1);
        EXPECT_TRUE(clip(GPC_UNION, {{contour}, {}}, {}).contours.empty());
    }
}

TEST(Gpc, TakesRecordsWithoutArrays) {
    gpc_vertex_list lists[] = {{5, nullptr}, {-4, nullptr}};
    gpc_polygon records[] = {{0, nullptr, nullptr}, {3, nullptr, nullptr}, {2, nullptr, lists}, {-1, nullptr, lists}};
    gpc_polygon result{};
    for (gpc_polygon* operand :
         {&records[0], &records[1], &records[2], &records[3], static_cast<gpc_polygon*>(nullptr)}) {
        result = {7, nullptr, lists};
        gpc_polygon_clip(GPC_UNION, operand, operand, &result);
        EXPECT_TRUE(result.num_contours == 0 && result.hole == nullptr && result.contour == nullptr);
    }
    gpc_polygon_clip(GPC_UNION, &records[0], &records[0], nullptr);
    gpc_free_polygon(nullptr);
    gpc_free_polygon(&result);
}

TEST(Gpc, TheResultMayBeAnOperand) {
    Contour a = rectangle(0, 0, 10, 10);
    Contour b = rectangle(5, 5, 20, 20);
    gpc_vertex_list listA{4, a.data()}, listB{4, b.data()};
    gpc_polygon subject{1, nullptr, &listA}, other{1, nullptr, &listB};
    for (const int op : {-1, 4, 1000}) { // none that there is
        gpc_polygon nothing{7, nullptr, nullptr};
        gpc_polygon_clip(static_cast<gpc_op>(op), &subject, &other, &nothing);
        EXPECT_EQ(nothing.num_contours, 0) << op;
    }
    gpc_polygon_clip(GPC_INT, &subject, &other, &subject);
    ASSERT_EQ(subject.num_contours, 1);
    EXPECT_EQ(subject.contour[0].num_vertices, 4);
    gpc_free_polygon(&subject);
    EXPECT_EQ(subject.contour, nullptr);
}

TEST(Gpc, WorksInAnyUnits) {
    for (const double unit : {5e-324, 1e-310, 1e-300, 1e-3, 1e9, 1e300, largest / 32}) {
        const Polygon a{{rectangle(0, 0, 16 * unit, 16 * unit)}, {}};
        const Polygon b{{rectangle(8 * unit, -8 * unit, 12 * unit, 24 * unit - 16 * unit)}, {}};
        const Polygon result = clip(GPC_INT, a, b);
        ASSERT_EQ(result.contours.size(), 1U) << unit;
        EXPECT_EQ(result.contours[0].size(), 4U) << unit;
    }
    for (const bool isWide : {false, true}) {
        const Polygon strip{{isWide ? rectangle(-1e6, 0, 1e6, 1) : rectangle(0, -1e6, 1, 1e6)}, {}};
        EXPECT_DOUBLE_EQ(evenOddArea(strip), 2e6) << isWide;
    }
    const Polygon widest{{rectangle(-largest, -largest, largest, largest)}, {}};
    EXPECT_EQ(clip(GPC_INT, widest, {{rectangle(-largest, 0, 0, largest)}, {}}).contours.size(), 1U);
    const double hair = 4e-15; // a thin ring keeps its hole
    const Polygon ring =
        clip(GPC_DIFF, {{rectangle(-1, -1, 1, 1)}, {}}, {{rectangle(-1 + hair, -1 + hair, 1 - hair, 1 - hair)}, {}});
    EXPECT_EQ(ring.holes, (std::vector<bool>{false, true}));
}

TEST(Gpc, ContoursComeBeforeWhatLiesInThem) {
    Polygon nested;
    for (const int inset : {3, 0, 4, 1, 2}) { // five rectangles, one in another
        nested.contours.push_back(rectangle(inset, inset, 20 - inset, 20 - inset));
    }
    const Polygon result = clip(GPC_UNION, nested, {});
    EXPECT_EQ(result.holes, (std::vector<bool>{false, true, false, true, false}));
    for (size_t i = 0; i < result.contours.size(); ++i) {
        const auto size = static_cast<double>(20 - 2 * i);
        EXPECT_DOUBLE_EQ((Polygon{{result.contours[i]}, {false}}.area()), size * size) << i;
    }
}

// What touches at a point: told apart, or else no part could be told to be a hole.
TEST(Gpc, ContoursPassEachVertexOnce) {
    using Contours = std::vector<Contour>;
    const Contours field = {rectangle(0, 0, 10, 10)};
    const Contours touching = {rectangle(2, 2, 5, 5), rectangle(5, 5, 8, 8)};
    const struct {
        const char* name;
        gpc_op op;
        Contours a, b;
        double area;
        int holes;
    } rows[] = {
        {"a hole that touches the border", GPC_DIFF, field, {{{0, 5}, {4, 3}, {4, 7}}}, 92, 1},
        {"two squares that share a corner", GPC_UNION, touching, {}, 18, 0},
        {"a bow tie", GPC_UNION, {{{0, 0}, {10, 10}, {10, 0}, {0, 10}}}, {}, 50, 0},
        {"squares on a chequered field", GPC_XOR, touching, {rectangle(4, 4, 6, 6)}, 18, 0},
        {"two holes that share a corner", GPC_DIFF, field, touching, 82, 2},
    };
    for (const auto& row : rows) {
        const Polygon result = clip(row.op, {row.a, {}}, {row.b, {}});
        EXPECT_DOUBLE_EQ(result.area(), row.area) << row.name;
        for (const Contour& contour : result.contours) {
            for (size_t i = 0; i < contour.size(); ++i) {
                for (size_t k = 0; k < i; ++k) {
                    EXPECT_FALSE(contour[i].x == contour[k].x && contour[i].y == contour[k].y) << row.name;
                }
            }
        }
        EXPECT_EQ(std::count(result.holes.begin(), result.holes.end(), true), row.holes) << row.name;
    }
}

// A row of slits along one axis or the other: the clipper goes along the row.
TEST(Gpc, TheDirectionOfARowDoesNotMatter) {
    constexpr int slits = 40;
    for (const bool lying : {false, true}) {
        const auto along = [&](double x0, double y0, double x1, double y1) {
            return lying ? rectangle(x0, y0, x1, y1) : rectangle(y0, x0, y1, x1);
        };
        Polygon row;
        for (int i = 0; i < slits; ++i) {
            row.contours.push_back(along(i + 0.1, 0.7, i + 0.1 + 0.25, 9.3));
        }
        const Polygon result = clip(GPC_DIFF, {{along(-0.3, 0.1, slits, 9.9)}, {}}, row);
        EXPECT_NEAR(result.area(), (slits + 0.3) * 9.8 - slits * 0.25 * 8.6, 1e-9);
        ASSERT_EQ(result.contours.size(), slits + 1U);
        for (size_t i = 0; i < result.contours.size(); ++i) {
            EXPECT_EQ(result.holes[i], i > 0) << lying << ", contour " << i;
            EXPECT_EQ(signedArea(result.contours[i]) > 0, i == 0) << lying << ", contour " << i;
            for (const gpc_vertex& vertex : result.contours[i]) {
                const double across = lying ? vertex.y : vertex.x;
                EXPECT_TRUE(i == 0 ? across == 0.1 || across == 9.9 : across == 0.7 || across == 9.3) << across;
            }
        }
    }
}

/// The contours in their order: outer ones united, holes subtracted.
double areaInOrder(const Polygon& polygon) {
    Polygon sum;
    for (size_t i = 0; i < polygon.contours.size(); ++i) {
        sum = clip(polygon.holes[i] ? GPC_DIFF : GPC_UNION, sum, {{polygon.contours[i]}, {}});
        sum.holes.clear();
    }
    return sum.area();
}

/// Even-odd membership, by counting crossings.
bool holds(const Polygon& polygon, const gpc_vertex& p) {
    bool inside = false;
    for (const Contour& contour : polygon.contours) {
        for (size_t i = 0; i < contour.size(); ++i) {
            const gpc_vertex& a = contour[i];
            const gpc_vertex& b = contour[(i + 1) % contour.size()];
            inside ^= (a.y > p.y) != (b.y > p.y) && p.x < a.x + (b.x - a.x) * (p.y - a.y) / (b.y - a.y);
        }
    }
    return inside;
}

/// A polygon whose edges touch, overlap and cross at the places of a coarse lattice.
Contour latticePolygon(std::mt19937& random) {
    Contour outline(4 + random() % 6);
    for (gpc_vertex& vertex : outline) {
        vertex = {1e5 * static_cast<double>(random() % 7), static_cast<double>(random() % 7)};
    }
    return outline;
}

/// Holds what becomes of two polygons against their areas and against membership at some places.
void expectCombined(const Polygon& a, const Polygon& b, std::mt19937& places) {
    const double areaA = evenOddArea(a), areaB = evenOddArea(b), tolerance = 1e-6 * (1e6 + areaA);
    const Polygon both = clip(GPC_INT, a, b), either = clip(GPC_XOR, a, b), left = clip(GPC_DIFF, a, b);
    EXPECT_NEAR(either.area() + 2 * both.area(), areaA + areaB, tolerance);
    EXPECT_NEAR(left.area() + both.area(), areaA, tolerance);
    for (const Polygon* result : {&both, &either, &left}) {
        EXPECT_NEAR(areaInOrder(*result), result->area(), tolerance);
    }
    std::uniform_real_distribution<double> part(0, 1);
    for (int i = 0; i < 5; ++i) {
        const gpc_vertex p{6e5 * part(places), 6 * part(places)};
        EXPECT_EQ(holds(both, p), holds(a, p) && holds(b, p));
        EXPECT_EQ(holds(either, p), holds(a, p) != holds(b, p));
        EXPECT_EQ(holds(left, p), holds(a, p) && !holds(b, p));
    }
}

// Beside slightly moved copies, too, where rounding makes holes larger than what they lie in.
TEST(Gpc, PolygonsAreCombinedAsTheirPointsAre) {
    std::mt19937 random(1), places(2);
    std::uniform_real_distribution<double> shift(-1, 1);
    for (int round = 0; round < 3000; ++round) {
        SCOPED_TRACE(round);
        const Polygon a{{latticePolygon(random)}, {}};
        Polygon moved = a;
        const double distance = std::pow(10, -5 - 5 * std::fabs(shift(random)));
        for (gpc_vertex& vertex : moved.contours[0]) {
            vertex.x += distance * shift(random);
        }
        expectCombined(a, moved, places);
        if (round % 3 == 0) {
            expectCombined(a, {{latticePolygon(places), latticePolygon(places)}, {}}, places);
        }
    }
}

} // namespace
