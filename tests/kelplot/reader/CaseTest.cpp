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

TEST(ReaderCases, AreReadAsExpected) {
    for (const char* const file : {"annotations", "attributes", "entities", "oddities", "tables", "texts"}) {
        expectCases(std::string(CASES) + file + ".cases", outcomeOf);
    }
}

} // namespace
} // namespace kelplot
