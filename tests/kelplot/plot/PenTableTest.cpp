// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <ostream>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

struct PenCase {
    const char* name;
    Colour colour;
    PenRule rule; ///< of colour number 1
    bool monochrome;
    HT_Color ink;
    double weight; ///< device units, a tenth of a millimetre each; the drawing states a millimetre
};

std::ostream& operator<<(std::ostream& stream, const PenCase& row) {
    return stream << row.name;
}

class Pens : public ::testing::TestWithParam<PenCase> {};

TEST_P(Pens, TakeThePlaceOfTheDrawingsStyle) {
    const PenCase& row = GetParam();
    Drawing drawing = emptyDrawing();
    Entity line = entityOf(Line{{10.0, 10.0, 0.0}, {20.0, 20.0, 0.0}});
    line.attributes.colour = row.colour;
    line.attributes.lineWeight = 100;
    Entity area = entityOf(Solid{{Vec3{10, 10, 0}, {20, 10, 0}, {20, 20, 0}, {10, 20, 0}}});
    area.attributes.colour = row.colour;
    drawing.modelSpace = {line, area};
    PlotStyleOptions style;
    style.monochrome = row.monochrome;
    style.pens.set(1, row.rule);
    const auto shapes = shapesOf(drawing, tenfoldTarget(), style);
    ASSERT_EQ(shapes.size(), 2U);
    EXPECT_EQ(shapes[0].color, row.ink);
    EXPECT_DOUBLE_EQ(shapes[0].weight, row.weight);
    EXPECT_EQ(shapes[1].color, row.ink) << "an area is filled with the same ink";
}

constexpr Colour red{Colour::Kind::index, 1};
constexpr HT_Color redInk = 0x0000ff;
constexpr HT_Color blueInk = 0xff0000;

INSTANTIATE_TEST_SUITE_P(
    All, Pens,
    ::testing::Values(PenCase{"nothing stated", red, {}, false, redInk, 10},
                      PenCase{"width", red, {0.5, {}, 100}, false, redInk, 5},
                      PenCase{"colour", red, {{}, blueInk, 100}, false, blueInk, 10},
                      PenCase{"half the ink", red, {{}, {}, 50}, false, 0x7f7fff, 10},
                      PenCase{"no ink", red, {{}, {}, 0}, false, 0xffffff, 10},
                      PenCase{"a fifth of the pen's ink", red, {2.0, HT_Color{0}, 20}, false, 0xcccccc, 20},
                      PenCase{"monochrome", red, {{}, blueInk, 40}, true, 0x999999, 10},
                      PenCase{"other number", {Colour::Kind::index, 5}, {2.0, HT_Color{0}, 50}, false, blueInk, 10},
                      PenCase{"true colour", {Colour::Kind::trueColour, 1}, {2.0, blueInk, 50}, false, 0x010000, 10}));

TEST(PenTable, LeaveAreasThatCoverOthersWhite) {
    Drawing drawing = emptyDrawing();
    drawing.modelSpace = {entityOf(Solid{{Vec3{10, 10, 0}, {20, 10, 0}, {20, 20, 0}, {10, 20, 0}}})};
    drawing.modelSpace[0].attributes.colour = {Colour::Kind::index, 255};
    PlotStyleOptions style;
    style.pens.set(255, {1.0, HT_Color{0}, 100});
    EXPECT_EQ(shapesOf(drawing, tenfoldTarget(), style).at(0).color, 0xffffffU);
}

} // namespace
} // namespace kelplot
