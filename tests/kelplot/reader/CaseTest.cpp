// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "kelplot/CaseFile.h"
#include "kelplot/reader/DrawingText.h"
#include "reader/DrawingReader.h"

namespace kelplot {
namespace {

const char* const files[] = {"annotations", "attributes", "entities", "oddities", "tables", "texts"};

std::vector<std::string> outcomeOf(const std::string& text) {
    try {
        return shown(readText(text));
    } catch (const ReadError& error) {
        const std::string message = error.what();
        return {"refused" + message.substr(message.find(": "))};
    }
}

TEST(ReaderCases, AreReadAsExpected) {
    for (const char* const file : files) {
        expectCases(std::string(CASES) + file + ".cases",
                    [](const Case& given) { return outcomeOf(linesOf(given.groups())); });
    }
}

/// All but those that only text form can state.
TEST(ReaderCases, AreReadAsExpectedInBinaryForm) {
    for (const char* const file : files) {
        for (const BinaryCodes codes : {BinaryCodes::wide, BinaryCodes::narrow}) {
            expectCases(std::string(CASES) + file + ".cases", [&](const Case& given) {
                const bool refused = !given.expected.empty() && given.expected[0].rfind("refused", 0) == 0;
                return refused ? given.expected : outcomeOf(bytesOf(given.groups(), codes));
            });
        }
    }
}

} // namespace
} // namespace kelplot
