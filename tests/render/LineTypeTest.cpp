#include <cmath>
#include <limits>

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

struct DashCase {
    const char* name;
    double weight;
    double scale;
    std::vector<double> pattern;
    QVector<double> expected;
};

std::ostream& operator<<(std::ostream& out, const DashCase& c) {
    return out << c.name;
}

class CustomDash : public ::testing::TestWithParam<DashCase> {};

TEST_P(CustomDash, BecomesMultiplesOfTheWeight) {
    const DashCase& c = GetParam();
    std::vector<double> pattern = c.pattern;
    OpenRenderer renderer;
    renderer.setScale(c.scale);
    renderer.SetLineWeight(c.weight);
    renderer.SetLineType(HT_PlotStyle::LineTypeCustom, pattern.data(), static_cast<unsigned>(pattern.size()));
    EXPECT_EQ(renderer.penStyle, Qt::CustomDashLine);
    EXPECT_EQ(renderer.dashPattern, c.expected);
}

// A negative weight is read as the unsigned number with the same bits.
constexpr double minusOneUnsigned = 4294967295.0;

INSTANTIATE_TEST_SUITE_P(
    LineType, CustomDash,
    ::testing::Values(DashCase{"zero weight neither shortens nor divides", 0, 1, {10, 5}, {10, 5}},
                      DashCase{"gaps give the caps their room", 2, 1, {10, 5}, {5, 1.5}},
                      DashCase{"a zero length is one pen width, scaled", 2, 3, {0, 4}, {3, 3}},
                      DashCase{"rounded, and a short gap goes negative", 4, 1, {2.5, 2.5}, {0.75, -0.25}},
                      DashCase{"almost zero counts as zero", 1, 3, {1e-11, 7}, {3, 18}},
                      DashCase{"the tolerance itself counts as zero", 5, 1, {1e-10, -1e-10}, {1, 1}},
                      DashCase{"above the tolerance rounds to nothing", 5, 1, {2e-10, 2e-10}, {0, -1}},
                      DashCase{"a gap as long as the weight vanishes", 3, 1, {3, 3}, {1, 0}},
                      DashCase{"saturating", 1, 1, {1e300, -1e300}, {2147483647.0, -2147483649.0}},
                      DashCase{
                          "not a number counts as zero", 2, 1, {std::numeric_limits<double>::quiet_NaN(), 4}, {1, 1}},
                      DashCase{"negative weight", -1, 1, {minusOneUnsigned, 0}, {2147483647.0 / minusOneUnsigned, 1}}));

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
