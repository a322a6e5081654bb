// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Text.h"

#include <gtest/gtest.h>

#include "DrawingText.h"
#include "reader/TextEncoding.h"
#include "reader/mtext/TextCodes.h"

namespace kelplot {
namespace {

constexpr double degree = 0.017453292519943295;

/// The stretches with the lines of each before it, such as "plain|u:underlined".
std::string shown(const std::vector<TextStretch>& stretches) {
    std::string result;
    for (const TextStretch& stretch : stretches) {
        const TextLines& lines = stretch.lines;
        const std::string marks =
            std::string(lines.under ? "u" : "") + (lines.over ? "o" : "") + (lines.through ? "k" : "");
        result += (result.empty() ? "" : "|") + marks + (marks.empty() ? "" : ":") + stretch.text;
    }
    return result;
}

/// The lines of text in these entities, paragraphs by their plain words.
std::vector<std::string> textsOf(const std::vector<Entity>& entities) {
    std::vector<std::string> texts;
    for (const Entity& entity : entities) {
        if (const auto* const line = std::get_if<Text>(&entity.geometry)) {
            texts.push_back(shown(line->stretches));
        } else if (const auto* const text = std::get_if<MText>(&entity.geometry)) {
            std::string& words = texts.emplace_back();
            for (const Paragraph& paragraph : text->paragraphs) {
                for (const TextPiece& piece : paragraph.pieces) {
                    const auto* const span = std::get_if<TextSpan>(&piece);
                    words += span != nullptr ? span->text : "*";
                }
                words += "/";
            }
        }
    }
    return texts;
}

TEST(TextCodes, AreResolved) {
    TextEncoding decoder;
    decoder.setCodePage("ANSI_1251");
    const std::pair<const char*, const char*> rows[] = {
        {"%%c50 45%%d %%P0.1 7%%%", "Ø50 45° ±0.1 7%"},
        {"%%176 %%127 %%214 %%065", "° ° Ц A"},
        {"a %%uline%%u %%ub%%ooth%%k!", "a |u:line| |u:b|uo:oth|uok:!"},
        {"a^Ib^M^Jc ^ 2 x^2 ^a ^?", "a b c ^2 x^2 ^a ^?"},
        {"50%% %%x %%99 %%999 %%", "50%% %%x %%99 %%999 %%"},
        {"a%%152b", "ab"}, // a control character
        {"%%u%%u", ""},
        {"^", "^"},
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(shown(textStretches(text, decoder)), expected) << text;
    }
}

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

TEST(TextStyles, NameTheirFonts) {
    const Drawing drawing = readGroups(
        section("TABLES", "0=STYLE 2=Notes 70=4 3=simplex.shx 4=big.shx 40=2.5 41=0.8 50=15 71=6"
                          " 0=STYLE 2=Bold 3=arial.ttf 41=0 1001=OTHER 1000=No 1001=ACAD 1000=Arial 1071=50331682"
                          " 0=STYLE 70=1 3=shapes.shx 0=STYLE 2=STANDARD 3=txt") +
        drawingOf("0=TEXT 1=a 7=bold 0=TEXT 1=a 7=missing 0=TEXT 1=a 7=notes 0=TEXT 1=a"));
    ASSERT_EQ(drawing.textStyles.size(), 4u);
    const TextStyle& standard = drawing.textStyles[0];
    EXPECT_EQ(standard.name + ' ' + standard.font.name, "Standard txt");
    const TextStyle& notes = drawing.textStyles[1];
    EXPECT_EQ(notes.font.name + ' ' + notes.bigFontFile, "simplex.shx big.shx");
    EXPECT_TRUE(notes.font.isFile && notes.vertical && notes.backward && notes.upsideDown);
    EXPECT_EQ(notes.height, 2.5);
    EXPECT_EQ(notes.widthFactor, 0.8);
    EXPECT_DOUBLE_EQ(notes.obliqueAngle, 15 * degree);
    const TextStyle& bold = drawing.textStyles[2];
    EXPECT_EQ(bold.font.name, "Arial");
    EXPECT_TRUE(!bold.font.isFile && bold.font.bold && bold.font.italic);
    EXPECT_EQ(bold.widthFactor, 1.0);
    const uint32_t styles[] = {2, 3, 1, 0};
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(std::get<Text>(drawing.modelSpace.at(i).geometry).style, styles[i]) << i;
    }
    EXPECT_EQ(std::get<Text>(drawing.modelSpace[2].geometry).height, 2.5);
}

TEST(Texts, AreReadWithTheirLook) {
    const Entity entity =
        readOne("0=TEXT 1=a 10=1 20=2 30=3 40=2.5 41=0.5 50=90 51=-10 71=4 72=5 73=3 74=1 11=4 21=5 31=3"
                " 210=0 220=0 230=-1");
    const Text text = std::get<Text>(entity.geometry);
    EXPECT_EQ(text.position, (Vec3{1, 2, 3}));
    EXPECT_EQ(text.alignment, (Vec3{4, 5, 3}));
    EXPECT_EQ(text.height, 2.5);
    EXPECT_EQ(text.widthFactor, 0.5);
    EXPECT_DOUBLE_EQ(text.rotation, 90 * degree);
    EXPECT_DOUBLE_EQ(text.obliqueAngle, -10 * degree);
    EXPECT_TRUE(text.upsideDown && !text.backward);
    EXPECT_EQ(text.column, TextColumn::fit);
    EXPECT_EQ(text.row, TextRow::top);
    EXPECT_EQ(entity.extrusion, (Vec3{0, 0, -1}));
    // An attribute keeps its row elsewhere; without a second point the first one is meant.
    const Text other = std::get<Text>(readOne("0=ATTRIB 1=a 10=7 40=-1 41=0 71=2 72=99 74=2 73=3").geometry);
    EXPECT_EQ(other.row, TextRow::middle);
    EXPECT_EQ(other.column, TextColumn::left);
    EXPECT_EQ(other.alignment, (Vec3{7, 0, 0}));
    EXPECT_TRUE(other.backward && other.height == 1.0 && other.widthFactor == 1.0);
}

TEST(Attributes, AreShownWhereTheyAreToBe) {
    const std::string block = section("BLOCKS", "0=BLOCK 2=B 0=ATTDEF 1=value 2=TAG 70=0 0=ATTDEF 1=fixed 2=TAG 70=2"
                                                " 0=ATTDEF 1=hidden 2=TAG 70=3 0=ENDBLK");
    const std::string entities = "0=ATTDEF 1=value 2=TAG 70=1 0=INSERT 2=B 66=1 0=ATTRIB 1=seen 2=A 70=0"
                                 " 0=ATTRIB 1=unseen 2=B 70=1 0=SEQEND 0=TEXT 1=last"
                                 // Another part of the record has other meanings for the codes.
                                 " 0=ATTRIB 1=note 40=3 10=5 100=AcDbXrecord 70=2 10=9 40=9 2=B"
                                 " 101=Embedded 1=two\\Plines 10=5 40=3 101=Embedded 10=1 11=5 71=2 72=2 44=8 73=1";
    using Texts = std::vector<std::string>;
    const struct {
        const char* mode;
        Texts inBlock;
        Texts inModel;
    } rows[] = {
        {"1", {"fixed"}, {"TAG", "seen", "last", "two/lines/"}},
        {"2", {"fixed", "hidden"}, {"TAG", "seen", "unseen", "last", "two/lines/"}},
        {"0", {}, {"TAG", "last"}},
        {"3", {"fixed"}, {"TAG", "seen", "last", "two/lines/"}}, // no such mode
    };
    for (const auto& row : rows) {
        const std::string header = section("HEADER", "9=$ATTMODE 70=" + std::string(row.mode));
        const Drawing drawing = readGroups(header + block + drawingOf(entities));
        EXPECT_EQ(textsOf(drawing.blocks.at(0).entities), row.inBlock) << row.mode;
        EXPECT_EQ(textsOf(drawing.modelSpace), row.inModel) << row.mode;
    }
    const Drawing drawing = readGroups(block + drawingOf(entities));
    const MText note = std::get<MText>(drawing.modelSpace.back().geometry);
    EXPECT_EQ(note.position, (Vec3{5, 0, 0}));
    EXPECT_EQ(note.columns.count, 2);
}

} // namespace
} // namespace kelplot
