// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>

#include "render/RendererFixture.h"

namespace {

TEST_F(RendererTest, StandardLineTypes) {
    double pattern[] = {10, 5};
    const struct {
        int type;
        Qt::PenStyle style;
    } cases[] = {
        {0, Qt::SolidLine},   {1, Qt::DashLine},  {2, Qt::DotLine},
        {3, Qt::DashDotLine}, {7, Qt::SolidLine}, {-1, Qt::SolidLine},
    };
    for (const auto& c : cases) {
        renderer.SetLineType(HT_PlotStyle::LineTypeCustom, pattern, 2);
        renderer.SetLineType(fromDriver<HT_PlotStyle::LineType>(c.type), pattern, 2);
        EXPECT_EQ(painter.pen().style(), c.style) << "type " << c.type;
        EXPECT_TRUE(renderer.dashPattern.isEmpty()) << "type " << c.type;
    }
}

TEST(CustomDash, BecomesMultiplesOfTheWeight) {
    constexpr double minusOneUnsigned = 4294967295.0; // a negative weight is read as the unsigned number of its bits
    const double nan = std::nan("");
    const struct {
        const char* name;
        double weight;
        double scale;
        std::vector<double> pattern;
        QVector<double> expected;
    } rows[] = {
        {"zero weight neither shortens nor divides", 0, 1, {10, 5}, {10, 5}},
        {"gaps give the caps their room", 2, 1, {10, 5}, {5, 1.5}},
        {"a zero length is one pen width, scaled", 2, 3, {0, 4}, {3, 3}},
        {"rounded, and a short gap goes negative", 4, 1, {2.5, 2.5}, {0.75, -0.25}},
        {"almost zero counts as zero", 1, 3, {1e-11, 7}, {3, 18}},
        {"the tolerance itself counts as zero", 5, 1, {1e-10, -1e-10}, {1, 1}},
        {"above the tolerance rounds to nothing", 5, 1, {2e-10, 2e-10}, {0, -1}},
        {"saturating", 1, 1, {1e300, -1e300}, {2147483647.0, -2147483649.0}},
        {"not a number counts as zero", 2, 1, {nan, 4}, {1, 1}},
        {"negative weight", -1, 1, {minusOneUnsigned, 0}, {2147483647.0 / minusOneUnsigned, 1}},
    };
    for (const auto& row : rows) {
        std::vector<double> pattern = row.pattern;
        OpenRenderer renderer;
        renderer.setScale(row.scale);
        renderer.SetLineWeight(row.weight);
        renderer.SetLineType(HT_PlotStyle::LineTypeCustom, pattern.data(), static_cast<unsigned>(pattern.size()));
        EXPECT_EQ(renderer.penStyle, Qt::CustomDashLine) << row.name;
        EXPECT_EQ(renderer.dashPattern, row.expected) << row.name;
    }
}

TEST_F(RendererTest, PatternReachesThePenAndKeepsItsWeight) {
    double pattern[] = {10, 5};
    renderer.SetLineWeight(2.0);
    renderer.SetLineType(HT_PlotStyle::LineTypeCustom, pattern, 2);
    renderer.SetLineWeight(5.0);
    EXPECT_EQ(painter.pen().dashPattern(), QVector<qreal>({5, 1.5}));
    renderer.SetLineType(HT_PlotStyle::LineTypeCustom, pattern, 2);
    EXPECT_EQ(painter.pen().dashPattern(), QVector<qreal>({2, 0}));
}

TEST_F(RendererTest, CustomTypeWithoutPatternStaysCustom) {
    double pattern[] = {10, 5};
    for (double* given : {pattern, static_cast<double*>(nullptr)}) {
        renderer.SetLineType(HT_PlotStyle::LineTypeCustom, given, given == nullptr ? 2 : 0);
        EXPECT_EQ(painter.pen().style(), Qt::CustomDashLine);
        EXPECT_TRUE(renderer.dashPattern.isEmpty());
    }
}

} // namespace
