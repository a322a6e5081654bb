// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

#include "DrawingText.h"
#include "reader/mtext/MTextMarkup.h"

namespace kelplot {
namespace {

std::string number(double value) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.6g", value);
    return digits;
}

/// What `format` has other than a plain one, such as "<h2 u>".
std::string shown(const CharacterFormat& format) {
    std::string words;
    const auto add = [&](bool tells, const std::string& word) {
        words += tells ? ' ' + word : "";
    };
    add(format.height != 1.0, 'h' + number(format.height));
    add(format.widthFactor != 1.0, 'w' + number(format.widthFactor));
    add(format.obliqueAngle != 0.0, 'q' + number(format.obliqueAngle / 0.017453292519943295));
    add(format.tracking != 1.0, 't' + number(format.tracking));
    add(format.lines.under, "u");
    add(format.lines.over, "o");
    add(format.lines.through, "k");
    add(format.level != CharacterFormat::Level::bottom, 'a' + std::to_string(static_cast<int>(format.level)));
    if (format.colour) {
        words +=
            " c" + std::to_string(static_cast<int>(format.colour->kind)) + ':' + std::to_string(format.colour->value);
    }
    if (format.font) {
        words += (format.font->isFile ? " file:" : " ") + format.font->name + (format.font->bold ? "+b" : "") +
                 (format.font->italic ? "+i" : "");
    }
    return words.empty() ? words : '<' + words.substr(1) + '>';
}

/// Paragraphs as one line: pieces with their formats, '$' at the end of a paragraph and '&' before another column.
std::string shown(const std::vector<Paragraph>& paragraphs) {
    std::string result;
    for (const Paragraph& paragraph : paragraphs) {
        for (const TextPiece& piece : paragraph.pieces) {
            result += std::visit([](const auto& each) { return shown(each.format); }, piece);
            if (const auto* const span = std::get_if<TextSpan>(&piece)) {
                result += span->text;
            } else if (const auto* const stack = std::get_if<TextStack>(&piece)) {
                constexpr const char* dividers[] = {"^", "/", "#"};
                result += '[' + stack->upper + dividers[static_cast<int>(stack->divider)] + stack->lower + ']';
            } else {
                result += "->";
            }
        }
        result += paragraph.columnBreakAfter ? '&' : '$';
    }
    return result;
}

TEST(MTextMarkup, IsResolved) {
    const struct {
        const char* name;
        std::string markup;
        const char* expected;
    } rows[] = {
        {"empty", "", "$"},
        {"paragraphs", R"(a\Pb\X\Nc)", "a$b$&c$"},
        {"signs", R"(a\~b\\c\{d\}%%c%%d^ )", "a\u00A0b\\c{d}Ø°^$"},
        {"carets", "a^Ib^Jc^Md^G^x", "a->b$cd^x$"},
        {"lines", R"(\La\Ob\lc\o\Kd\ke)", "<u>a<u o>b<o>c<k>de$"},
        {"braces", R"({\C1;a{\H2;b}c}d}e)", "<c2:1>a<h2 c2:1>b<c2:1>cde$"},
        {"heights", R"(\H2.5;a\H2x;b\H.5xc\H0;d)", "<h2.5>a<h5>b<h2.5>c<h2.5>d$"},
        {"numbers", R"(\W0.8;\Q15;\T1.5;\A1;a\W2x;\Q-15;\A0;b)", "<w0.8 q15 t1.5 a1>a<w1.6 q-15 t1.5>b$"},
        {"colours", R"(\C0;a\C256;b\c255;c\c16711680;d)", "<c0:0>a<c1:0>b<c3:16711680>c<c3:255>d$"},
        {"fonts", R"(\fArial|b1|i1|c0|p34;a\Ftxt,big;b\fisocp.shx|c0;c\FArial|b0;d\f;e)",
         "<Arial+b+i>a<file:txt>b<file:isocp.shx>c<Arial>de$"},
        {"stacks", R"(\S1/2;\S1#2;\S+0.1^ -0.1;\S2^;\Sa\/b^c;\L\S1/%%d;)", "[1/2][1#2][+0.1^-0.1][2^][a/b^c]<u>[1/°]$"},
        {"stack of one", R"(a\Sb;c)", "abc$"},
        {"unfinished", R"(\S1/2\Pa\fArial\Pb\pi2\H)", R"(1/2$a\fArial$b\pi2\H$)"},
        {"stack in the next paragraph", R"(\S1/2\PH\S3#4;\S5\NC;)", "1/2$H[3#4]5&C;$"},
        {"no codes", R"(C:\new\ \Hx;\)", R"(C:\new\ \Hx;\$)"},
        {"no numbers", R"(\H;a\C;b\Hinf;c\H1e999;d\W-1;e)", "ab\\Hinf;cde$"},
        {"deep", std::string(200, '{') + "a" + std::string(200, '}') + R"(b{\Lc}d)", "ab<u>cd$"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(shown(paragraphsOf(row.markup, CharacterFormat(), TextEncoding())), row.expected) << row.name;
    }
}

/// Reading on to the end from each of them would take hours.
TEST(MTextMarkup, UnfinishedCodesCostLittle) {
    const std::pair<const char*, std::size_t> rows[] = {{"\\S", 0}, {"\\H", 2}, {"\\f", 2}, {"\\p", 2}, {"\\C-", 3}};
    constexpr std::size_t count = 300000;
    for (const auto& [code, shownLength] : rows) {
        std::string markup;
        for (std::size_t i = 0; i < count; ++i) {
            markup += code;
        }
        EXPECT_EQ(shown(paragraphsOf(markup, CharacterFormat(), TextEncoding())).size(), count * shownLength + 1)
            << code;
    }
}

TEST(MTextMarkup, ParagraphsKeepTheirShape) {
    CharacterFormat start;
    start.height = 2.0;
    const auto paragraphs =
        paragraphsOf(R"(\pxi-1,l2,r3,qj,tc4,r6,2;a\Pb\pi*,l0,qc,t;\P\pq*;\H3;)", start, TextEncoding());
    ASSERT_EQ(paragraphs.size(), 3u);
    EXPECT_EQ(paragraphs[0].firstIndent, -2.0);
    EXPECT_EQ(paragraphs[0].leftIndent, 4.0);
    EXPECT_EQ(paragraphs[0].rightIndent, 6.0);
    EXPECT_EQ(paragraphs[0].alignment, Paragraph::Alignment::justified);
    EXPECT_EQ(*paragraphs[0].tabStops, (std::vector<double>{4, 8, 12}));
    EXPECT_EQ(paragraphs[1].firstIndent, 0.0);
    EXPECT_EQ(paragraphs[1].rightIndent, 6.0);
    EXPECT_EQ(paragraphs[1].alignment, Paragraph::Alignment::center);
    EXPECT_TRUE(paragraphs[1].tabStops->empty());
    EXPECT_EQ(paragraphs[2].tabStops, paragraphs[1].tabStops) << "copies of them add up";
    EXPECT_EQ(paragraphs[2].alignment, Paragraph::Alignment::byText);
    EXPECT_EQ(paragraphs[2].format.height, 3.0);
}

MText readMText(const std::string& groups) {
    return std::get<MText>(readOne("0=MTEXT " + groups).geometry);
}

TEST(MTexts, AreReadWithTheirPlace) {
    const MText text = readMText("10=1 20=2 30=3 40=2.5 41=60 71=5 72=3 3=\xC3 3=\xA9\\U+ 1=0416\\\\U+0041 73=2 44=1.5"
                                 " 50=45 11=0 21=1 31=0");
    EXPECT_EQ(text.position, (Vec3{1, 2, 3}));
    EXPECT_EQ(text.height, 2.5);
    EXPECT_EQ(text.width, 60);
    EXPECT_EQ(text.attachment, 5);
    EXPECT_TRUE(text.vertical && text.exactLineSpacing);
    EXPECT_EQ(text.lineSpacing, 1.5);
    EXPECT_DOUBLE_EQ(text.rotation, std::acos(0.0));
    EXPECT_EQ(shown(text.paragraphs), "<h2.5>éЖ\\U+0041$");
    // A text that is seen from behind: its plane's x axis points to the left.
    const MText behind = readMText("1=a 10=1 20=2 30=3 11=-1 71=99 44=-1 230=-1");
    EXPECT_EQ(behind.position, (Vec3{-1, 2, -3}));
    EXPECT_NEAR(behind.rotation, 0.0, 1e-12);
    EXPECT_TRUE(behind.attachment == 1 && behind.lineSpacing == 1.0);
    EXPECT_DOUBLE_EQ(readMText("1=a 50=90").rotation, std::acos(0.0));
}

TEST(MTexts, AreReadWithTheirColumns) {
    using Heights = std::vector<double>;
    const struct {
        const char* name;
        const char* groups;
        int count;
        double width, gutter;
        Heights heights;
        bool reversed = false;
    } rows[] = {
        {"none", "75=0 76=3 48=5", 1, 0, 0, {}},
        {"own heights", "50=30 75=2 76=2 78=1 79=0 48=40 49=5 50=70 50=30", 2, 40, 5, {70, 30}, true},
        {"one height", "75=1 76=3 48=40 49=5 46=70", 3, 40, 5, {70}},
        {"one embedded", "101=E 70=1 10=1 11=5 40=60 41=0 71=2 72=1 44=60 45=5 73=0 74=0 46=0", 1, 0, 0, {}},
        {"embedded heights",
         "101=E 10=1 11=5 40=60 41=0 71=2 72=2 44=17 45=6 73=0 74=1 46=13 46=0",
         2,
         17,
         6,
         {13, 0},
         true},
        {"embedded height", "101=E 10=1 11=5 41=80 71=1 72=2 44=17 45=6 73=0 74=0", 2, 17, 6, {80}},
        {"too many", "75=2 76=2000000000 50=1", 100, 60, 0, {1}},
    };
    for (const auto& row : rows) {
        const MText text = readMText("1=a 10=7 41=60 " + std::string(row.groups));
        EXPECT_EQ(text.position, (Vec3{7, 0, 0})) << row.name;
        EXPECT_EQ(text.columns.count, row.count) << row.name;
        EXPECT_EQ(text.columns.width, row.width) << row.name;
        EXPECT_EQ(text.columns.gutter, row.gutter) << row.name;
        EXPECT_EQ(text.columns.heights, row.heights) << row.name;
        EXPECT_EQ(text.columns.reversed, row.reversed) << row.name;
    }
}

} // namespace
} // namespace kelplot
