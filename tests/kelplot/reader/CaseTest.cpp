// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "kelplot/CaseFile.h"
#include "kelplot/reader/DrawingText.h"
#include "reader/DrawingReader.h"

namespace kelplot {
namespace {

std::vector<std::string> outcomeOf(const Case& given) {
    try {
        return shown(readGroups(given.groups()));
    } catch (const ReadError& error) {
        const std::string message = error.what();
        return {"refused" + message.substr(message.find(": "))};
    }
}

class ReaderCases : public ::testing::TestWithParam<const char*> {};

TEST_P(ReaderCases, AreReadAsExpected) {
    expectCases(std::string(CASES) + GetParam(), outcomeOf);
}

INSTANTIATE_TEST_SUITE_P(, ReaderCases,
                         ::testing::Values("attributes.cases", "entities.cases", "oddities.cases", "tables.cases",
                                           "texts.cases"));

} // namespace
} // namespace kelplot
