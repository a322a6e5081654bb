// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <algorithm>

#include "kelplot/plot/PlotKit.h"
#include "plot/text/FontSet.h"
#include "plot/text/MTextLayout.h"

namespace kelplot {
namespace {

using Alignment = Paragraph::Alignment;

CharacterFormat formatOf(double height) {
    CharacterFormat format;
    format.height = height;
    return format;
}

Paragraph paragraphOf(const char* characters, Alignment alignment = Alignment::byText, double height = 3.0) {
    Paragraph paragraph;
    paragraph.format = formatOf(height);
    paragraph.alignment = alignment;
    if (*characters != '\0') {
        paragraph.pieces = {TextSpan{characters, formatOf(height)}};
    }
    return paragraph;
}

MText textOf(std::vector<Paragraph> paragraphs, double width = 0.0, int attachment = 1) {
    MText text;
    text.paragraphs = std::move(paragraphs);
    text.height = 3.0;
    text.width = width;
    text.attachment = attachment;
    return text;
}

class MTextPlot : public ::testing::Test {
protected:
    MTextPlot() { style.font = {"DejaVu Sans", false, false, false}; }

    TextBlock block(const MText& text) { return layOut(text, style, fonts).block; }
    /// The texts of the runs, and their base lines in tenths of a unit.
    std::string linesOf(const MText& text) {
        std::string lines;
        for (const TextRun& run : block(text).runs) {
            lines += run.text.toStdString() + " " + std::to_string(std::lround(run.origin.y * 10.0)) + "\n";
        }
        return lines;
    }
    double widthOf(const char* characters) {
        const FontFace face = fonts.choose(style.font, "").face;
        const FontMetric& metric = fonts.metric(face);
        return metric.advanceOf(characters) / metric.capHeight() * 3.0;
    }

    TextStyle style;
    FontSet fonts{FontTable()};
};

TEST_F(MTextPlot, LinesAreWrappedWhereTheScriptLetsThem) {
    const double word = widthOf("mmmm");
    const double ideographs = widthOf("中中中") + 0.1;
    const struct {
        const char* name;
        const char* text;
        double width;
        const char* lines; ///< base lines in tenths of a unit; they are 5 units apart
    } cases[] = {
        {"two words a line", "mmmm mmmm mmmm", 2.5 * word, "mmmm mmmm -30\nmmmm -80\n"},
        {"blanks at the end need no room", "mmmm   mmmm", word + 0.01, "mmmm -30\nmmmm -80\n"},
        {"a word too long stays whole", "mmmm mmmmmmmm m", 1.5 * word, "mmmm -30\nmmmmmmmm -80\nm -130\n"},
        {"between ideographs", "中中中中中", ideographs, "中中中 -30\n中中 -80\n"},
        {"not at all", "mmmm mmmm", 0.0, "mmmm mmmm -30\n"},
        {"not at a hard blank", "mmmm\u00A0mmmm", word, "mmmm\u00A0mmmm -30\n"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(linesOf(textOf({paragraphOf(row.text)}, row.width)), row.lines) << row.name;
    }
}

TEST_F(MTextPlot, LinesFollowOneAnotherAtTheirDistance) {
    const std::vector<Paragraph> paragraphs = {paragraphOf("a"), paragraphOf("", Alignment::byText, 6.0),
                                               paragraphOf("b")};
    const struct {
        const char* name;
        int attachment;
        double spacing;
        bool exact;
        const char* lines;
    } cases[] = {
        {"a high line pushes the next one", 1, 1.0, false, "a -30\nb -180\n"},
        {"half as far again", 1, 1.5, false, "a -30\nb -255\n"},
        {"exact", 1, 1.0, true, "a -30\nb -130\n"},
        {"exact, twice as far", 1, 2.0, true, "a -30\nb -230\n"},
        {"from the bottom", 7, 1.0, true, "a 100\nb 0\n"},
        {"from the middle", 5, 1.0, true, "a 35\nb -65\n"},
    };
    for (const auto& row : cases) {
        MText text = textOf(paragraphs, 0.0, row.attachment);
        text.lineSpacing = row.spacing;
        text.exactLineSpacing = row.exact;
        EXPECT_EQ(linesOf(text), row.lines) << row.name;
    }
}

TEST_F(MTextPlot, LinesStandWhereTheirAlignmentSays) {
    const double word = widthOf("mm");
    const double blank = widthOf(" ");
    const struct {
        const char* name;
        Alignment alignment;
        int attachment;
        std::vector<double> starts; ///< of the runs, in a frame of 20
    } cases[] = {
        {"left", Alignment::byText, 1, {0.0, 0.0}},
        {"centre by attachment", Alignment::byText, 2, {-word - blank / 2.0, -word / 2.0}},
        {"right by attachment", Alignment::byText, 3, {-2.0 * word - blank, -word}},
        {"left, hung on its right edge", Alignment::left, 3, {-20.0, -20.0}},
        {"justified", Alignment::justified, 1, {0.0, 20.0 - word, 0.0}},
    };
    for (const auto& row : cases) {
        const TextBlock set = block(textOf({paragraphOf("mm mm mm", row.alignment)}, 20.0, row.attachment));
        ASSERT_EQ(set.runs.size(), row.starts.size()) << row.name;
        for (size_t i = 0; i < row.starts.size(); ++i) {
            EXPECT_NEAR(set.runs[i].origin.x, row.starts[i], 0.02) << row.name << ", run " << i;
        }
    }
    Paragraph indented = paragraphOf("mm mm mm");
    indented.firstIndent = -1.0;
    indented.leftIndent = 4.0;
    indented.tabStops = std::make_shared<const std::vector<double>>(1, 10.0);
    indented.pieces.insert(indented.pieces.begin(), {TextSpan{"1", formatOf(3.0)}, TextTab{formatOf(3.0)}});
    const TextBlock list = block(textOf({indented}, 10.0 + word + 0.1));
    ASSERT_EQ(list.runs.size(), 4U);
    EXPECT_DOUBLE_EQ(list.runs[0].origin.x, 3.0);
    EXPECT_DOUBLE_EQ(list.runs[1].origin.x, 10.0) << "at the tab stop";
    EXPECT_DOUBLE_EQ(list.runs[2].origin.x, 4.0) << "hanging";
}

TEST_F(MTextPlot, ColumnsAreFilledOneAfterTheOther) {
    Paragraph ended = paragraphOf("c");
    ended.columnBreakAfter = true;
    MText text = textOf({paragraphOf("a"), paragraphOf("b"), ended, paragraphOf("d")});
    text.columns = {3, 20.0, 5.0, {9.0}, false};
    const std::vector<Vec2> expected = {{0.0, -3.0}, {0.0, -8.0}, {25.0, -3.0}, {50.0, -3.0}};
    TextBlock set = block(text);
    ASSERT_EQ(set.runs.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_LT((set.runs[i].origin - expected[i]).length(), 1e-9) << i;
    }
    text.columns.reversed = true;
    EXPECT_DOUBLE_EQ(block(text).runs[0].origin.x, 50.0);
}

TEST_F(MTextPlot, StacksKeepToTheMiddleOfTheirLine) {
    TextStack stack{"1", "2", TextStack::Divider::bar, formatOf(2.0)};
    stack.format.level = CharacterFormat::Level::middle;
    Paragraph paragraph = paragraphOf("7");
    paragraph.pieces.emplace_back(stack);
    const TextBlock set = block(textOf({paragraph}));
    ASSERT_EQ(set.runs.size(), 3U);
    ASSERT_EQ(set.strokes.size(), 1U);
    const double middle = set.runs[0].origin.y + 1.5;
    EXPECT_NEAR(set.strokes[0].from.y, middle, 1e-9);
    EXPECT_NEAR((set.runs[1].origin.y + set.runs[2].origin.y) / 2.0 + 1.0, middle, 1e-9);
    EXPECT_GE(set.runs[2].origin.x, widthOf("7"));
}

TEST_F(MTextPlot, TrackingMovesLettersApart) {
    Paragraph paragraph = paragraphOf("mmm");
    std::get<TextSpan>(paragraph.pieces[0]).format.tracking = 2.0;
    const TextBlock set = block(textOf({paragraph}));
    ASSERT_EQ(set.runs.size(), 3U);
    EXPECT_NEAR(set.runs[2].origin.x, 4.0 * widthOf("m"), 1e-9);
}

TEST_F(MTextPlot, SpansHaveTheirOwnColours) {
    constexpr HT_Color red = 0x0000FF, green = 0x00FF00;
    Paragraph paragraph = paragraphOf("plain ");
    TextSpan coloured{"red", formatOf(3.0)};
    coloured.format.colour = Colour{Colour::Kind::index, 1};
    coloured.format.lines.under = true;
    TextSpan layered{"by layer", formatOf(3.0)};
    layered.format.colour = Colour{Colour::Kind::byLayer, 0};
    paragraph.pieces.insert(paragraph.pieces.end(), {coloured, layered});
    MText text = textOf({paragraph});
    text.position = {10.0, 50.0, 0.0};
    Entity entity = entityOf(text);
    entity.attributes.colour = {Colour::Kind::index, 5};
    Drawing drawing = drawingOf(entity);
    drawing.layers[0].colour = {Colour::Kind::index, 3};
    const auto shapes = shapesOf(drawing);
    ASSERT_EQ(shapes.size(), 4U);
    EXPECT_EQ(shapes[0].kind, "text plain ");
    EXPECT_EQ(shapes[1].color, red);
    EXPECT_EQ(shapes[2].color, green);
    EXPECT_EQ(shapes[3].kind, "area");
    EXPECT_EQ(shapes[3].color, red);
    for (const Vec2 p : shapes[3].points) {
        EXPECT_GT(p.y, 531.0) << "the base line is at 530, the line below it";
    }
}

TEST_F(MTextPlot, WordsStandInTheOrderOfTheirScript) {
    constexpr double edge = 60.0;
    const struct {
        const char* name;
        std::vector<const char*> spans; ///< each with a colour of its own
        Alignment alignment;
        std::vector<const char*> fromLeft; ///< the texts with ink, as they stand
    } cases[] = {
        {"two colours", {"אבא ", "דודו", " ששש"}, Alignment::left, {" ששש", "דודו", "אבא "}},
        {"spread", {"אבא דודו ששש"}, Alignment::distributed, {"ששש", "דודו", "אבא"}},
        {"from left to right inside", {"אבא ", "one two", " ששש"}, Alignment::left, {" ששש", "one two", "אבא "}},
        {"two colours of those", {"אבא ", "one ", "two"}, Alignment::left, {"one ", "two", "אבא "}},
        {"inside a line from left to right",
         {"one ", "אבא ", "דודו", " two"},
         Alignment::left,
         {"one ", "דודו", "אבא ", " two"}},
        {"numbers go along", {"אבא ", "12", " דודו"}, Alignment::left, {" דודו", "12", "אבא "}},
    };
    for (const auto& row : cases) {
        Paragraph paragraph = paragraphOf("", row.alignment);
        std::string written;
        for (const char* span : row.spans) {
            paragraph.pieces.emplace_back(TextSpan{span, formatOf(3.0)});
            written += span;
        }
        std::vector<TextRun> runs = block(textOf({paragraph}, edge)).runs;
        std::sort(runs.begin(), runs.end(), [](const auto& a, const auto& b) { return a.origin.x < b.origin.x; });
        ASSERT_EQ(runs.size(), row.fromLeft.size()) << row.name;
        for (size_t i = 0; i < runs.size(); ++i) {
            EXPECT_EQ(runs[i].text.trimmed(), QString(row.fromLeft[i]).trimmed()) << row.name << ", run " << i;
        }
        const TextRun& last = runs.back();
        const double right = last.origin.x + widthOf(last.text.toStdString().c_str());
        EXPECT_NEAR(right, row.alignment == Alignment::left ? widthOf(written.c_str()) : edge, 0.1) << row.name;
    }
}

TEST(FontSet, FindsFontsByTheTable) {
    FontTable table;
    table.set("simplex", {{"no such font", "DejaVu Serif"}, true, false, false});
    table.set("gdt", {{"DejaVu Sans"}, false, false, true});
    table.set("arial", {{"no such font"}, false, false, false});
    table.setOthers({"no such font", "DejaVu Sans Mono"});
    FontSet fonts(table);
    const struct {
        FontName name;
        const char* family;
        bool bold;
    } cases[] = {
        {{"C:\\Fonts\\SIMPLEX.SHX", true, false, false}, "DejaVu Serif", true},
        {{"@dejavu sans", false, true, false}, "DejaVu Sans", true},
        {{"Arial", false, false, false}, "DejaVu Sans Mono", false},
        {{"unheard of.ttf", true, false, false}, "DejaVu Sans Mono", false},
    };
    for (const auto& row : cases) {
        const FontFace face = fonts.choose(row.name, "").face;
        EXPECT_EQ(face.family, row.family) << row.name.name;
        EXPECT_EQ(face.bold, row.bold) << row.name.name;
    }
    const auto runs = fonts.split("n5", fonts.choose({"gdt.shx", true, false, false}, ""));
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].text, QString::fromUtf8("⌀5"));
}

} // namespace
} // namespace kelplot
