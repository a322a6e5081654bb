// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <map>

#include "base/BoundedCache.h"
#include "kelplot/plot/PlotKit.h"
#include "plot/text/FontSet.h"

namespace kelplot {
namespace {

/// What is drawn, in fonts, for a text of paragraphs from the point (50, 50) on, 3 units high.
Shapes shapesFor(const std::string& markup, const std::string& groups = "") {
    PlotStyleOptions style;
    style.texts = TextMode::fonts;
    return shapesOf(withEntities("0=MTEXT 10=50 20=50 40=3 1=" + markup + ' ' + groups), tenfoldTarget(), style);
}

/// A text's start in drawing units, to the right of (50, 50).
double startOf(const Shape& text) {
    return text.origin.x / 10.0 - 50.0;
}

double widthOf(const std::string& characters) {
    return startOf(shapesFor(characters + "{\\C1;|}").at(1));
}

std::string wordsOf(const Shape& text) {
    return text.kind.substr(5);
}

double rightOf(const Shape& text) {
    return text.path.boundingRect().right();
}

/// A frame as wide.
std::string within(double width) {
    return group(41, width);
}

TEST(MTextPlot, LinesAreWrappedWhereTheScriptLetsThem) {
    const double word = widthOf("mmmm");
    const struct {
        const char* name;
        const char* text;
        double width;
        const char* lines; ///< base lines in units from the top; they are 5 units apart
    } cases[] = {
        {"two words a line", "mmmm␣mmmm␣mmmm", 2.5 * word, "mmmm mmmm 3/mmmm 8/"},
        {"blanks at the end need no room", "mmmm␣␣␣mmmm", word + 0.01, "mmmm 3/mmmm 8/"},
        {"a word too long stays whole", "mmmm␣mmmmmmmm␣m", 1.5 * word, "mmmm 3/mmmmmmmm 8/m 13/"},
        {"between ideographs", "中中中中中", widthOf("中中中") + 0.1, "中中中 3/中中 8/"},
        {"not at all", "mmmm␣mmmm", 0.0, "mmmm mmmm 3/"},
        {"not at a hard blank", "mmmm\\~mmmm", word, "mmmm\u00A0mmmm 3/"},
    };
    for (const auto& row : cases) {
        std::string lines;
        for (const Shape& run : shapesFor(row.text, within(row.width))) {
            lines += wordsOf(run) + ' ' + std::to_string(std::lround(run.origin.y / 10.0 - 50.0)) + '/';
        }
        EXPECT_EQ(lines, row.lines) << row.name;
    }
}

TEST(MTextPlot, FontsThatStandForOthersAreSetNarrowerBeforeTheyBreakALine) {
    const double line = widthOf("mmmm␣mmmm");
    const std::string standIn = "{\\Fno-such-font;mmmm␣mmmm}", twoLines = " 101=x 43=8", oneLine = " 101=x 43=3";
    const struct {
        const char* name;
        std::string text, groups;
        size_t runs;
        double narrowest, widest; ///< of the first run, as a part of its natural width
    } cases[] = {
        {"fits", standIn, within(1.01 * line), 1, 1.0, 1.0},
        {"a little narrower", standIn, within(0.95 * line), 1, 0.9, 0.95},
        {"as narrow as can be", standIn, within(0.885 * line), 1, 0.88, 0.885},
        {"too narrow", standIn, within(0.87 * line), 2, 0.4, 0.5},
        {"the font itself", "mmmm␣mmmm", within(0.95 * line), 2, 0.4, 0.5},
        {"breaks in the drawing too", standIn, within(0.95 * line) + twoLines, 2, 0.4, 0.5},
        {"does not break in the drawing", standIn, within(0.95 * line) + oneLine, 1, 0.9, 0.95},
        {"two lines of which one would break", standIn + "\\P" + standIn, within(0.95 * line) + twoLines, 2, 0.9, 0.95},
    };
    for (const auto& row : cases) {
        const Shapes runs = shapesFor(row.text, row.groups);
        ASSERT_EQ(runs.size(), row.runs) << row.name;
        const double part = runs[0].path.boundingRect().width() / 10.0 / line;
        EXPECT_GE(part, row.narrowest - 0.03) << row.name << ": " << part;
        EXPECT_LE(part, row.widest + 0.005) << row.name << ": " << part;
    }
}

TEST(MTextPlot, VerticalTextRunsDownInColumns) {
    const double half = shapesFor("H").at(0).path.boundingRect().width() / 20.0,
                 step = 3.0 * 26.0 / 21.0; // of letters 3 high; columns are 4 apart
    const struct {
        const char* groups;
        std::vector<std::pair<double, double>> letters; ///< middle and base line of each, from (50, 50)
    } cases[] = {
        {"", {{half, 3.0}, {half, 3.0 + step}, {half + 4.0, 3.0}}},
        {"71=5", {{-2.0, 1.5 - step / 2.0}, {-2.0, 1.5 + step / 2.0}, {2.0, 1.5}}},
        {"71=3 41=4 44=2", {{-half - 16.0, 3.0}, {-half - 8.0, 3.0}, {-half, 3.0}}},
    };
    for (const auto& row : cases) {
        const Shapes runs = shapesFor("HH\\PH", std::string("72=3 ") + row.groups);
        ASSERT_EQ(runs.size(), row.letters.size()) << row.groups;
        for (size_t i = 0; i < runs.size(); ++i) {
            EXPECT_NEAR(runs[i].path.boundingRect().center().x() / 10.0 - 50.0, row.letters[i].first, 0.2)
                << row.groups;
            EXPECT_NEAR(runs[i].origin.y / 10.0 - 50.0, row.letters[i].second, 1e-3) << row.groups;
        }
    }
}

TEST(MTextPlot, LinesStandWhereTheirAlignmentSays) {
    const double word = widthOf("mm");
    const double blank = widthOf("mm␣mm") - 2.0 * word;
    const std::string two = within(2.0 * word + blank + 0.1); // words
    const struct {
        const char* name;
        std::string text, groups;
        std::vector<double> starts; ///< of the first runs
    } cases[] = {
        {"left", "mm␣mm␣mm", two, {0.0, 0.0}},
        {"centre by attachment", "mm␣mm␣mm", two + " 71=2", {-word - blank / 2.0, -word / 2.0}},
        {"right by attachment", "mm␣mm␣mm", two + " 71=3", {-2.0 * word - blank, -word}},
        {"left, hung on its right edge", "\\pql;mm␣mm␣mm", "41=20 71=3", {-20.0, -20.0}},
        {"justified", "\\pqj;mm␣mm␣mm", within(2.5 * word + blank), {0.0, 1.5 * word + blank, 0.0}},
        {"tab stop, then hanging", "\\pi-1,l2,t4;1^Imm␣mm␣mm", within(12.1 + word), {3.0, 12.0, 6.0}},
        {"letters apart", "\\T2;mmm", "", {0.0, word, 2.0 * word}},
    };
    for (const auto& row : cases) {
        const Shapes runs = shapesFor(row.text, row.groups);
        ASSERT_GE(runs.size(), row.starts.size()) << row.name;
        for (size_t i = 0; i < row.starts.size(); ++i) {
            EXPECT_NEAR(startOf(runs[i]), row.starts[i], 0.02) << row.name << ", run " << i;
        }
    }
}

TEST(MTextPlot, StacksKeepToTheMiddleOfTheirLineAndLinesRunBelow) {
    const Shapes set = shapesFor(R"(7\A1;\H2;\S1/2;)");
    ASSERT_EQ(set.size(), 4U);
    const double middle = set[0].origin.y - 15.0; // half of the height of the 7
    EXPECT_NEAR(set[3].path.boundingRect().center().y(), middle, 0.6) << "the bar";
    EXPECT_NEAR((set[1].origin.y + set[2].origin.y) / 2.0 - 10.0, middle, 1e-6);
    EXPECT_GE(startOf(set[2]), widthOf("7") - 1e-6);

    const Shapes lined = shapesFor("\\Lred");
    ASSERT_EQ(lined.size(), 2U);
    EXPECT_GT(lined[1].path.boundingRect().top(), 531.0) << "the base line is at 530";
}

TEST(MTextPlot, WordsStandInTheOrderOfTheirScript) {
    constexpr double edge = 40.0;
    const struct {
        const char* name;
        std::vector<std::string> spans; ///< each with a colour of its own
        bool spread;
        std::vector<std::string> fromLeft; ///< the texts with ink, as they stand
    } cases[] = {
        {"two colours", {"אבא␣", "דודו", "␣ששש"}, false, {"ששש", "דודו", "אבא"}},
        {"spread", {"אבא␣דודו␣ששש"}, true, {"ששש", "דודו", "אבא"}},
        {"from left to right inside", {"אבא␣", "one␣two", "␣ששש"}, false, {"ששש", "one two", "אבא"}},
        {"two colours of those", {"אבא␣", "one␣", "two"}, false, {"one", "two", "אבא"}},
        {"inside a line from left to right", {"one␣", "אבא␣", "דודו", "␣two"}, false, {"one", "דודו", "אבא", "two"}},
        {"numbers go along", {"אבא␣", "12", "␣דודו"}, false, {"דודו", "12", "אבא"}},
    };
    for (const auto& row : cases) {
        std::string markup = row.spread ? "\\pqd;" : "\\pql;", written;
        for (size_t i = 0; i < row.spans.size(); ++i) {
            markup += "{\\C" + std::to_string(i + 1) + ';' + row.spans[i] + '}';
            written += row.spans[i];
        }
        Shapes runs = shapesFor(markup, within(edge));
        std::sort(runs.begin(), runs.end(), [](const auto& a, const auto& b) { return a.origin.x < b.origin.x; });
        ASSERT_EQ(runs.size(), row.fromLeft.size()) << row.name;
        for (size_t i = 0; i < runs.size(); ++i) {
            EXPECT_EQ(QString::fromStdString(wordsOf(runs[i])).trimmed().toStdString(), row.fromLeft[i]) << row.name;
        }
        const Shapes asOne = shapesFor((row.spread ? "\\pqr;" : "\\pql;") + written, within(edge));
        EXPECT_NEAR(rightOf(runs.back()), rightOf(asOne.back()), 0.5) << row.name;
    }
}

TEST(FontSet, FindsFontsByTheTable) {
    const QRegularExpression withoutFoundry("^[^\\[]*$"); // of fonts of several foundries either is taken
    const QStringList families = QFontDatabase().families(QFontDatabase::Latin).filter(withoutFoundry);
    ASSERT_FALSE(families.isEmpty());
    const QString &first = families.front(), &last = families.back();
    FontTable table;
    table.set("simplex", {{{"no such font"}, {first, 1.5}}, true, false, false});
    table.set("italic", {{{first}}, false, true, false});
    table.set("gdt", {{{first}}, false, false, true});
    table.set("arial-like", {{{"no such font"}}, false, false, false});
    table.setOthers({{"no such font"}, {last}});
    FontSet fonts(table);
    const struct {
        FontName name;
        QString family;
        bool bold, italic;
    } cases[] = {
        {{"C:\\Fonts\\SIMPLEX.SHX", true, false, false}, first, true, false},
        {{'@' + first.toLower().toStdString(), false, true, true}, first, true, true},
        {{"italic", false, false, false}, first, false, true},
        {{"Arial-like", false, false, false}, last, false, false},
        {{"unheard of.ttf", true, false, false}, last, false, false},
    };
    for (const auto& row : cases) {
        const FontFace face = fonts.choose(row.name, "").face;
        EXPECT_EQ(face.family, row.family) << row.name.name;
        EXPECT_EQ(face.bold, row.bold) << row.name.name;
        EXPECT_EQ(face.italic, row.italic) << row.name.name;
    }
    EXPECT_EQ(fonts.split("a", fonts.choose(cases[0].name, "")).front().widthRatio, 1.5);
    fonts.choose({"txt", true, false, false}, "big.shx");
    EXPECT_EQ(fonts.report().replaced.at("big.shx"), last);
    EXPECT_EQ(fonts.report().replaced.count('@' + first.toLower()), 0U) << "the font itself";
    const auto runs = fonts.split("n5", fonts.choose({"gdt.shx", true, false, false}, ""));
    QString text;
    for (const FontRun& run : runs) {
        text += run.text;
    }
    EXPECT_EQ(text, QString::fromUtf8("⌀5"));
}

TEST(BoundedCache, ForgetsWhenItIsFull) {
    BoundedCache<std::map<int, int>, 2> cache;
    int made = 0;
    for (const int key : {1, 2, 1, 3, 1}) {
        cache.get(key, [&] { return ++made; });
    }
    EXPECT_EQ(made, 4) << "1 and 2, then 3 in their place, then 1 again";
}

} // namespace
} // namespace kelplot
