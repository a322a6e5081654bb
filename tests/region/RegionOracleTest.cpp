// SPDX-License-Identifier: BSD-3-Clause
#include <functional>
#include <map>
#include <numeric>

#include <gtest/gtest.h>

#include "host/tarsel/Polygon.h"
#include "keldriver/VornRgn.h"
#include "support/RegionOracle.h"

// Random regions against membership counted by crossings of the contours as they were given, and against the clipper's
// calls vertex for vertex.

namespace {

using regionOracle::Contour;
using regionOracle::Contours;
using regionOracle::Generator;
using regionOracle::isInside;
using Membership = std::function<bool(const HT_Double_Point&)>;

bool isInsideEvenOdd(const Contours& contours, const HT_Double_Point& p) {
    bool inside = false;
    for (const Contour& contour : contours) {
        inside ^= isInside(contour.points, p);
    }
    return inside;
}

/// Draws random regions, and holds what `evaluate` makes of each against the membership that it tells. An evaluated
/// region must hold the same points by its codes in their order and under the even-odd rule.
template <typename Evaluate>
void checkRegions(unsigned seed, int regions, const std::vector<int>& codes, Evaluate evaluate) {
    Generator generator(seed);
    for (int region = 0; region < regions; ++region) {
        const Contours given = generator.region(codes);
        CVornRgn made;
        const Membership expected = evaluate(generator, given, made);
        const Contours result = regionOracle::toContours(made.GetClipRgnRef());
        for (int i = 0; i < 12; ++i) {
            const HT_Double_Point p = generator.pointIn(given);
            if (!isNearEdge(given, p, generator.tolerance())) {
                ASSERT_EQ(isInsideEvenOdd(result, p), expected(p))
                    << "region " << region << " at " << p.x << ", " << p.y;
                ASSERT_EQ(isInside(result, p), expected(p)) << "by codes, " << region << " at " << p.x << ", " << p.y;
            }
        }
    }
}

const std::vector<int> codes = {HT_RGN_AND, HT_RGN_COPY, HT_RGN_DIFF, HT_RGN_DIFF, HT_RGN_OR,
                                HT_RGN_OR,  HT_RGN_OR,   HT_RGN_XOR,  HT_RGN_XOR};

TEST(RegionOracle, RegionsMadeFromListsHoldWhatTheirCodesSay) {
    std::vector<int> withUnknown = codes;
    withUnknown.push_back(7);
    checkRegions(1, 9000, withUnknown, [](Generator&, const Contours& given, CVornRgn& made) -> Membership {
        made = CVornRgn(regionOracle::toList(given).get());
        return [ordered = regionOracle::outerFirst(given)](const auto& p) {
            return isInside(ordered, p);
        };
    });
}

TEST(RegionOracle, CombinedRegionsHoldWhatTheOperationsSay) {
    checkRegions(3, 4000, codes, [](Generator&, const Contours& given, CVornRgn& made) -> Membership {
        for (const Contour& contour : given) {
            CVornRgn next;
            next.CreatePolygonRgn(contour.points.data(), static_cast<int>(contour.points.size()), 1);
            made.CombineRgn(&made, &next, HT_RGN_OP_2_CDC_OP(contour.mode));
        }
        return [given](const HT_Double_Point& p) {
            return std::accumulate(given.begin(), given.end(), false, [&](bool inside, const auto& contour) {
                return regionOracle::joined(inside, isInside(contour.points, p), contour.mode);
            });
        };
    });
}

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

TEST(RegionOracle, EvaluationIsOneCallOfTheClipperForEachLaterContour) {
    std::vector<int> withUnknown = codes;
    withUnknown.insert(withUnknown.end(), {7, HT_RGN_OR | 0x100});
    Generator generator(11);
    for (int i = 0; i < 20000; ++i) {
        const Contours given = generator.region(withUnknown);
        const RgnList list = regionOracle::toList(given);
        const Contours result = regionOracle::toContours(PolyAlgoOperator::ClipRgnOperator(list.get()));
        const Contours expected = given.size() == 1 ? given : joinedOneByOne(regionOracle::outerFirst(given));
        ASSERT_TRUE(isSame(result, expected)) << "list " << i;
    }
}

/// A list with brackets in the place of `given`: sixteen opening steps of 256, here with two contours, are closed by
/// one step of 4096.
Contours bracketed(Generator& generator, Contours given) {
    const auto pick = [&] {
        return static_cast<size_t>(generator.integer(0, static_cast<int>(given.size())));
    };
    const auto [first, second] = std::minmax({pick(), pick()});
    if (first < second && second < given.size()) {
        const int outerSteps = generator.integer(1, 15);
        given[first].mode |= outerSteps * 0x100;
        given[second].mode |= (16 - outerSteps) * 0x100;
        given.push_back({0x1000, {}});
    }
    return given;
}

bool isInsideExpression(const Contours& expression, const HT_Double_Point& p) {
    std::vector<std::pair<bool, int>> open; // as the brackets say, without any short cut
    bool inside = false;
    for (const Contour& contour : expression) {
        if (contour.mode & 0xF000) {
            for (; !open.empty(); open.pop_back()) {
                inside = regionOracle::joined(open.back().first, inside, open.back().second);
            }
        } else if (contour.mode & 0xF00) {
            open.emplace_back(inside, contour.mode & 0xFF);
            inside = isInside(contour.points, p);
        } else {
            inside = regionOracle::joined(inside, isInside(contour.points, p), contour.mode);
        }
    }
    return inside;
}

TEST(RegionOracle, ExpressionsHoldWhatTheirBracketsSay) {
    checkRegions(4, 4000, codes, [](Generator& generator, const Contours& given, CVornRgn& made) -> Membership {
        const Contours expression = bracketed(generator, given);
        made.m_pClipRgn = regionOracle::toList(expression).release();
        made.StandardRgn();
        return [expression](const auto& p) {
            return isInsideExpression(expression, p);
        };
    });
}

} // namespace
