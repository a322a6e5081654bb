// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <ostream>

#include "page/PageSetup.h"
#include "page/SheetSize.h"

namespace kelplot {
namespace {

struct SizeCase {
    const char* text;
    double width; ///< 0: no size
    double height;
};

std::ostream& operator<<(std::ostream& stream, const SizeCase& row) {
    return stream << '"' << row.text << '"';
}

class SheetSizeText : public ::testing::TestWithParam<SizeCase> {};

TEST_P(SheetSizeText, IsRead) {
    const SizeCase& row = GetParam();
    EXPECT_EQ(sheetSizeFromText(row.text).value_or(SheetSize()), (SheetSize{row.width, row.height}));
}

INSTANTIATE_TEST_SUITE_P(All, SheetSizeText,
                         ::testing::Values(SizeCase{"420x297", 420, 297}, SizeCase{"100.5X80", 100.5, 80},
                                           SizeCase{"420x", 0, 0}, SizeCase{"x297", 0, 0}, SizeCase{"420", 0, 0},
                                           SizeCase{"0x297", 0, 0}, SizeCase{"-420x297", 0, 0},
                                           SizeCase{"420x297mm", 0, 0}, SizeCase{"infx297", 0, 0},
                                           SizeCase{"nanx297", 0, 0}, SizeCase{"420x20001", 0, 0},
                                           SizeCase{"1e9x1e9", 0, 0}, SizeCase{"A4", 0, 0}, SizeCase{"", 0, 0}));

struct ScaleCase {
    const char* text;
    double scale; ///< 0: none
};

std::ostream& operator<<(std::ostream& stream, const ScaleCase& row) {
    return stream << '"' << row.text << '"';
}

class ScaleText : public ::testing::TestWithParam<ScaleCase> {};

TEST_P(ScaleText, IsRead) {
    EXPECT_DOUBLE_EQ(scaleFromText(GetParam().text).value_or(0.0), GetParam().scale);
}

INSTANTIATE_TEST_SUITE_P(All, ScaleText,
                         ::testing::Values(ScaleCase{"1:50", 0.02}, ScaleCase{"2:1", 2.0}, ScaleCase{"0.5", 0.5},
                                           ScaleCase{"1/4", 0.25}, ScaleCase{"1:2.5", 0.4}, ScaleCase{"0", 0.0},
                                           ScaleCase{"1:0", 0.0}, ScaleCase{"0:1", 0.0}, ScaleCase{"-1:-50", 0.0},
                                           ScaleCase{"-2", 0.0}, ScaleCase{"1:50:2", 0.0}, ScaleCase{":", 0.0},
                                           ScaleCase{"1:", 0.0}, ScaleCase{"one", 0.0}, ScaleCase{"1,5", 0.0},
                                           ScaleCase{"inf", 0.0}, ScaleCase{"1e300:1e-300", 0.0},
                                           ScaleCase{"1 : 50", 0.0}, ScaleCase{"", 0.0}));

TEST(MarginsText, OneLengthIsForAllEdges) {
    const auto margins = marginsFromText("7.5");
    ASSERT_TRUE(margins);
    for (const double edge : {margins->left, margins->top, margins->right, margins->bottom}) {
        EXPECT_DOUBLE_EQ(edge, 7.5);
    }
}

TEST(MarginsText, FourLengthsGoAboutTheSheet) {
    const auto margins = marginsFromText("20,0,10,5");
    ASSERT_TRUE(margins);
    EXPECT_DOUBLE_EQ(margins->left, 20.0);
    EXPECT_DOUBLE_EQ(margins->top, 0.0);
    EXPECT_DOUBLE_EQ(margins->right, 10.0);
    EXPECT_DOUBLE_EQ(margins->bottom, 5.0);
}

TEST(MarginsText, AnythingElseIsRefused) {
    for (const char* const text : {"", "a", "1,2", "1,2,3", "1,2,3,4,5", "-1", "1,2,3,-4", "1,,3,4", "1,2,3,", "nan"}) {
        EXPECT_FALSE(marginsFromText(text)) << '"' << text << '"';
    }
}

} // namespace
} // namespace kelplot
