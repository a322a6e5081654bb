#include <functional>

#include <gtest/gtest.h>

#include "keldriver/VornRgn.h"
#include "support/RegionOracle.h"

// Random regions against membership counted by crossings of the contours as they were given.

namespace {

using regionOracle::Contours;
using regionOracle::Generator;
using regionOracle::isInside;
using Membership = std::function<bool(const HT_Double_Point&)>;

bool isInsideEvenOdd(const Contours& contours, const HT_Double_Point& p) {
    bool inside = false;
    for (const regionOracle::Contour& contour : contours) {
        inside ^= isInside(contour.points, p);
    }
    return inside;
}

/// An evaluated region must hold the same points by its codes in their order and under the even-odd rule.
void expectMembers(Generator& generator, const Contours& given, const HT_ClipRgn* evaluated, const Membership& expected,
                   int region) {
    constexpr int points = 12;
    const Contours result = regionOracle::toContours(evaluated);
    for (int i = 0; i < points; ++i) {
        const HT_Double_Point p = generator.pointIn(given);
        if (isNearEdge(given, p, generator.tolerance())) {
            continue;
        }
        ASSERT_EQ(isInsideEvenOdd(result, p), expected(p)) << "region " << region << " at " << p.x << ", " << p.y;
        ASSERT_EQ(isInside(result, p), expected(p)) << "by codes, region " << region << " at " << p.x << ", " << p.y;
    }
}

const std::vector<int> codes = {HT_RGN_AND, HT_RGN_COPY, HT_RGN_DIFF, HT_RGN_DIFF, HT_RGN_OR,
                                HT_RGN_OR,  HT_RGN_OR,   HT_RGN_XOR,  HT_RGN_XOR};

// The evaluation of a list starts with the first contour that is no hole.
void putOuterFirst(Contours& contours) {
    const auto isOuter = [](const regionOracle::Contour& contour) {
        return contour.mode != HT_RGN_DIFF;
    };
    const auto outer = std::find_if(contours.begin(), contours.end(), isOuter);
    if (outer != contours.end()) {
        std::swap(contours.front(), *outer);
    }
}

TEST(RegionOracle, EvaluatedListsHoldWhatTheirCodesSay) {
    Generator generator(1);
    std::vector<int> withUnknown = codes;
    withUnknown.push_back(7);
    for (int region = 0; region < 9000; ++region) {
        const Contours given = generator.region(withUnknown);
        Contours ordered = given;
        putOuterFirst(ordered);
        const RgnList list = regionOracle::toList(given);
        ASSERT_EQ(PolyAlgoOperator::ClipRgnOperator(list.get()), list.get());
        expectMembers(
            generator, given, list.get(), [&](const auto& p) { return isInside(ordered, p); }, region);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(RegionOracle, RegionsMadeFromListsHoldWhatTheirCodesSay) {
    Generator generator(2);
    for (int region = 0; region < 4000; ++region) {
        const Contours given = generator.region(codes);
        Contours ordered = given;
        putOuterFirst(ordered);
        CVornRgn made(regionOracle::toList(given).get());
        expectMembers(
            generator, given, made.GetClipRgnRef(), [&](const auto& p) { return isInside(ordered, p); }, region);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(RegionOracle, CombinedRegionsHoldWhatTheOperationsSay) {
    Generator generator(3);
    for (int region = 0; region < 4000; ++region) {
        const Contours given = generator.region(codes);
        CVornRgn made;
        for (const regionOracle::Contour& contour : given) {
            CVornRgn next;
            next.CreatePolygonRgn(contour.points.data(), static_cast<int>(contour.points.size()), 1);
            made.CombineRgn(&made, &next, HT_RGN_OP_2_CDC_OP(contour.mode));
        }
        const auto expected = [&](const HT_Double_Point& p) {
            bool inside = false;
            for (const regionOracle::Contour& contour : given) {
                inside = regionOracle::joined(inside, isInside(contour.points, p), contour.mode);
            }
            return inside;
        };
        expectMembers(generator, given, made.GetClipRgnRef(), expected, region);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(RegionOracle, ExpressionsHoldWhatTheirBracketsSay) {
    Generator generator(4);
    for (int region = 0; region < 4000; ++region) {
        // Sixteen opening steps of 256 brackets are closed by one step of 4096, here opened by two contours.
        Contours given = generator.region(codes);
        const auto pick = [&] {
            return static_cast<size_t>(generator.integer(0, static_cast<int>(given.size())));
        };
        size_t positions[] = {pick(), pick()};
        std::sort(std::begin(positions), std::end(positions));
        Contours expression = given;
        const bool bracketed = positions[1] < given.size() && positions[0] != positions[1];
        if (bracketed) {
            const int outerSteps = generator.integer(1, 15);
            expression[positions[0]].mode |= outerSteps * 0x100;
            expression[positions[1]].mode |= (16 - outerSteps) * 0x100;
            expression.push_back({0x1000, {}});
        }
        const auto expected = [&](const HT_Double_Point& p) {
            std::vector<std::pair<bool, int>> open; // as the brackets say, without any short cut
            bool inside = false;
            for (const regionOracle::Contour& contour : expression) {
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
        };
        CVornRgn made;
        made.m_pClipRgn = regionOracle::toList(expression).release();
        made.StandardRgn();
        expectMembers(generator, given, made.GetClipRgnRef(), expected, region);
        if (HasFatalFailure()) {
            return;
        }
    }
}

} // namespace
