#include "reader/GroupValue.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

namespace kelplot {
namespace {

struct RealCase {
    const char* text;
    double value;
};

std::ostream& operator<<(std::ostream& stream, const RealCase& row) {
    return stream << '"' << row.text << '"';
}

class RealText : public ::testing::TestWithParam<RealCase> {};

TEST_P(RealText, IsRead) {
    EXPECT_EQ(toReal(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Numbers, RealText,
                         ::testing::Values(RealCase{"  -2.5", -2.5}, RealCase{"+3", 3.0}, RealCase{"1e-3\t", 1e-3},
                                           RealCase{"7,25", 7.25}, RealCase{"4mm", 4.0}));
INSTANTIATE_TEST_SUITE_P(Unusable, RealText,
                         ::testing::Values(RealCase{"", 0.0}, RealCase{"abc", 0.0}, RealCase{"nan", 0.0},
                                           RealCase{"-inf", 0.0}, RealCase{"1e999", 0.0}, RealCase{"1e101", 0.0}));

TEST(IntegerText, StaysWithinRange) {
    EXPECT_EQ(toInteger("  42 "), 42);
    EXPECT_EQ(toInteger("7.0"), 7);
    EXPECT_EQ(toInteger("x"), 0);
    EXPECT_EQ(toInteger("99999999999"), std::numeric_limits<int>::max());
    EXPECT_EQ(toInteger("-99999999999"), std::numeric_limits<int>::min());
}

} // namespace
} // namespace kelplot
