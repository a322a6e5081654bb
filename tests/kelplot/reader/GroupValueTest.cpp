// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/GroupValue.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelplot {
namespace {

TEST(GroupValue, IsReadAsFarAsItGoesAndKeptInRange) {
    const std::pair<const char*, double> reals[] = {{"  -2.5", -2.5}, {"+3", 3.0},   {"1e-3\t", 1e-3}, {"7,25", 7.25},
                                                    {"4mm", 4.0},     {"", 0.0},     {"  ", 0.0},      {"abc", 0.0},
                                                    {"nan", 0.0},     {"-inf", 0.0}, {"1e999", 0.0},   {"1e101", 0.0}};
    for (const auto& [text, value] : reals) {
        EXPECT_EQ(toReal(text), value) << text;
    }
    const std::pair<const char*, int> integers[] = {{"  42 ", 42},
                                                    {"7.0", 7},
                                                    {"x", 0},
                                                    {"99999999999", std::numeric_limits<int>::max()},
                                                    {"-99999999999", std::numeric_limits<int>::min()}};
    for (const auto& [text, value] : integers) {
        EXPECT_EQ(toInteger(text), value) << text;
    }
}

} // namespace
} // namespace kelplot
