// SPDX-License-Identifier: BSD-3-Clause
#include "geometry/Numeric.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "keldriver/Types.h"

using namespace KelDriver::Internal;

namespace {

TEST(Rounding, HalvesGoAwayFromZeroAndLimitsSaturate) {
    const double infinity = std::numeric_limits<double>::infinity();
    const struct {
        double value;
        int32_t rounded;
        int32_t truncated;
    } cases[] = {
        {0.5, 1, 0},
        {2.5, 3, 2},
        {-0.5, -1, 0},
        {-2.5, -3, -2},
        {2147483646.5, INT32_MAX, 2147483646},
        {2147483647.9, INT32_MAX, INT32_MAX},
        {-2147483647.4, -2147483647, -2147483647},
        {-2147483647.5, INT32_MIN, -2147483647},
        {-2147483648.9, INT32_MIN, INT32_MIN},
        {-1e300, INT32_MIN, INT32_MIN},
        {infinity, INT32_MAX, INT32_MAX},
        {-infinity, INT32_MIN, INT32_MIN},
        {std::nan(""), 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(roundToInt32(c.value), c.rounded) << c.value;
        EXPECT_EQ(truncateToInt32(c.value), c.truncated) << c.value;
    }
}

TEST(IsEqual, IsStrictAndSymmetric) {
    EXPECT_TRUE(isEqual(1.0, 1.25, 0.5));
    EXPECT_TRUE(isEqual(1.25, 1.0, 0.5));
    EXPECT_FALSE(isEqual(1.0, 1.5, 0.5)); // differs by just the tolerance
    EXPECT_FALSE(isEqual(1.0, 1.0, 0.0));
    EXPECT_FALSE(isEqual(std::nan(""), std::nan(""), 1.0));
    EXPECT_FALSE(isEqual(1.0, 1.0, std::nan("")));
}

} // namespace
