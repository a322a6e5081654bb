// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "reader/TextEncoding.h"
#include "reader/mtext/MTextMarkup.h"

namespace kelplot {
namespace {

TEST(CodePages, CanBeDecoded) {
    for (const char* const name :
         {"dos437",    "dos850",    "dos852",    "dos855",    "dos857",    "dos860",    "dos861",
          "dos863",    "dos864",    "dos865",    "dos866",    "dos869",    "dos932",    "ANSI_874",
          "ANSI_932",  "ANSI_936",  "ANSI_949",  "ANSI_950",  "ANSI_1250", "ANSI_1251", "ANSI_1252",
          "ANSI_1253", "ANSI_1254", "ANSI_1255", "ANSI_1256", "ANSI_1257", "ANSI_1258", "ANSI_65001"}) {
        EXPECT_NE(codePageOfDrawing(name).codec, nullptr) << name;
    }
    for (const char digit : {'1', '2', '3', '5'}) {
        EXPECT_NE(codePageOfEscape(digit).codec, nullptr) << digit;
    }
}

/// Reading on to the end from each of them would take hours.
TEST(MTextMarkup, UnfinishedCodesCostLittle) {
    const std::pair<const char*, size_t> rows[] = {{"\\S", 0}, {"\\H", 2}, {"\\f", 2}, {"\\p", 2}, {"\\C-", 3}};
    constexpr size_t count = 300000;
    for (const auto& [code, shownLength] : rows) {
        std::string markup;
        for (size_t i = 0; i < count; ++i) {
            markup += code;
        }
        const auto paragraphs = paragraphsOf(markup, CharacterFormat(), TextEncoding());
        size_t length = 0;
        for (const TextPiece& piece : paragraphs.at(0).pieces) {
            length += std::get<TextSpan>(piece).text.size();
        }
        EXPECT_EQ(length, count * shownLength) << code;
    }
}

TEST(MTextMarkup, ParagraphsShareTheirTabStops) {
    const auto paragraphs = paragraphsOf(R"(\pt4,8;a\Pb)", CharacterFormat(), TextEncoding());
    EXPECT_EQ(paragraphs.at(0).tabStops, paragraphs.at(1).tabStops) << "copies of them would add up";
}

} // namespace
} // namespace kelplot
