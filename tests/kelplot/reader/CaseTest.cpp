// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "kelplot/CaseFile.h"
#include "kelplot/reader/DrawingText.h"

namespace kelplot {
namespace {

class ReaderCases : public ::testing::TestWithParam<const char*> {};

TEST_P(ReaderCases, AreReadAsExpected) {
    expectCases(std::string(CASES) + GetParam(), [](const Case& given) { return shown(readGroups(given.groups())); });
}

INSTANTIATE_TEST_SUITE_P(, ReaderCases,
                         ::testing::Values("attributes.cases", "entities.cases", "tables.cases", "texts.cases"));

} // namespace
} // namespace kelplot
