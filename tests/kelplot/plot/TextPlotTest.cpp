// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QFontDatabase>
#include <algorithm>
#include <cmath>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

constexpr TextMode modes[] = {TextMode::outlines, TextMode::fonts};

/// The box of what is drawn, in drawing units.
Box2 inkOf(const Drawing& drawing, TextMode mode = TextMode::outlines) {
    PlotStyleOptions style;
    style.texts = mode;
    QRectF ink;
    for (const Shape& shape : shapesOf(drawing, tenfoldTarget(), style)) {
        ink |= shape.path.boundingRect();
    }
    return {{ink.left() / 10.0, 100.0 - ink.bottom() / 10.0}, {ink.right() / 10.0, 100.0 - ink.top() / 10.0}};
}

/// A text at (50, 50), both of its points, 10 high; later groups outweigh these.
Drawing textOf(const std::string& groups, const std::string& style = "3=no-such-font.shx") {
    return readGroups(section("TABLES", "0=STYLE 2=Standard " + style) +
                      drawingOf("0=TEXT 1=HHH 10=50 20=50 11=50 21=50 40=10 " + groups));
}

TEST(Text, CapitalsAreAsHighAsStated) {
    const QStringList families = QFontDatabase().families(QFontDatabase::Latin).mid(0, 4) + QStringList("no such font");
    for (const QString& family : families) {
        for (const double height : {45.0, 37.3}) {
            Drawing drawing = textOf("1=H 50=90" + group(40, height));
            drawing.textStyles[0].font = {family.toStdString(), false, height > 40.0, false};
            EXPECT_NEAR(inkOf(drawing).width(), height, height / 100.0) << family.toStdString();
        }
    }
}

TEST(Text, StandsWhereItIsToAndAsLargeAsItIsTo) {
    const struct {
        const char* groups;
        Box2 box; ///< from the point, of a text 30 wide and 10 high
        double widthFactor = 1.0;
    } cases[] = {
        {"72=0", {{0, 0}, {30, 10}}},
        {"72=1", {{-15, 0}, {15, 10}}},
        {"72=2 73=3", {{-30, -10}, {0, 0}}},
        {"73=2", {{0, -5}, {30, 5}}},
        {"72=4", {{-15, -5}, {15, 5}}},
        {"50=90", {{-10, 0}, {0, 30}}},
        {"71=2", {{-30, 0}, {0, 10}}},
        {"71=4", {{0, -10}, {30, 0}}},
        {"10=-50 230=-1", {{-30, 0}, {0, 10}}},
        {"72=5 11=90", {{0, 0}, {40, 10}}},
        {"72=5 11=90 71=2", {{0, 0}, {40, 10}}},
        {"72=3 11=90", {{0, 0}, {40, 40 / 3.}}},
        {"71=0", {{0, 0}, {45, 10}}, 1.5},
    };
    const double natural = inkOf(textOf("1=HHHH")).width() - inkOf(textOf("1=H")).width(); // of three letters
    for (const auto& row : cases) {
        const Drawing drawing = textOf(row.groups + group(41, row.widthFactor * 30.0 / natural));
        // An H has straight sides, and bearings at its own.
        const bool isTurned = row.box.height() > row.box.width();
        const Vec2 bearing = isTurned ? Vec2{0.2, 2.0} : Vec2{2.0, 0.2};
        for (const TextMode mode : modes) {
            const Box2 ink = inkOf(drawing, mode);
            EXPECT_NEAR(ink.min.x, 50.0 + row.box.min.x, bearing.x) << row.groups;
            EXPECT_NEAR(ink.max.x, 50.0 + row.box.max.x, bearing.x) << row.groups;
            EXPECT_NEAR(ink.min.y, 50.0 + row.box.min.y, bearing.y) << row.groups;
            EXPECT_NEAR(ink.max.y, 50.0 + row.box.max.y, bearing.y) << row.groups;
        }
    }
    EXPECT_NEAR(inkOf(textOf("1=gHy 73=1")).min.y, 50.0, 0.2) << "letters that reach down stand on the point";
}

TEST(Text, OfAVerticalStyleRunsDown) {
    const std::pair<const char*, double> tops[] = {{"72=0", 50.0}, {"72=1", 67.4}, {"72=4", 67.4}, {"72=2", 84.8}};
    for (const auto& [groups, top] : tops) {
        const Box2 ink = inkOf(textOf(groups, "3=no-such-font.shx 70=4"));
        EXPECT_NEAR(ink.center().x, 50.0, 0.3) << groups;
        EXPECT_LT(ink.width(), 10.0) << groups;
        EXPECT_NEAR(ink.max.y, top, 0.3) << groups;
        EXPECT_NEAR(ink.height(), 10.0 + 2.0 * 10.0 * 26.0 / 21.0, 0.3) << groups;
    }
    for (const auto& [column, width] : {std::pair("72=5", 8.0), {"72=3", 18.0}}) { // from (50, 50) to (50, -30)
        const Box2 ink = inkOf(textOf(std::string(column) + " 21=-30", "3=no-such-font.shx 70=4"));
        EXPECT_NEAR(ink.max.y, 50.0, 0.5) << column;
        EXPECT_NEAR(ink.min.y, -30.0, 0.5) << column;
        EXPECT_NEAR(ink.width(), width, 3.0) << column << ": as wide as ever, or twice as large";
    }
}

TEST(Text, ExtentsAreWhatItCovers) {
    const Drawing drawing = textOf("1=Äg|%%u␣H 10=20 40=15 51=17");
    const Box2 extents = extentsOf(drawing);
    for (const TextMode mode : modes) {
        const Box2 ink = inkOf(drawing, mode);
        EXPECT_NEAR(extents.min.x, ink.min.x, 2.0);
        EXPECT_NEAR(extents.min.y, ink.min.y, 0.3);
        EXPECT_NEAR(extents.max.y, ink.max.y, 0.3);
        EXPECT_GE(extents.max.x, ink.max.x - 0.2);
        EXPECT_LE(extents.max.x, ink.max.x + 3.0) << "the box of a leaning letter";
    }
}

TEST(Text, OfNoHeightOrWidthIsNowhere) {
    for (double Text::*const size : {&Text::height, &Text::widthFactor}) {
        for (const double none : {0.0, std::nan("")}) {
            Drawing drawing = textOf("");
            std::get<Text>(drawing.modelSpace[0].geometry).*size = none;
            EXPECT_EQ(extentsOf(drawing).isEmpty(), none == 0.0 || size == &Text::height) << "a width is repaired";
        }
    }
}

TEST(LineTypeTexts, BeyondWhatAPageHoldsAreToldOf) {
    PlotStyleOptions style;
    style.texts = TextMode::fonts;
    // A text of 250 letters on each of 100 periods, of which two lines have as many as a plot draws.
    const std::string type = section("TABLES", "0=LTYPE 2=D 49=0.5 49=-0.5 74=2 46=1 9=" + std::string(250, 'X'));
    for (const int lines : {2, 3}) {
        std::string entities;
        for (int i = 0; i < lines; ++i) {
            entities += "0=LINE 6=D 11=100 ";
        }
        PlotReport report;
        const Shapes shapes = shapesOf(readGroups(type + drawingOf(entities)), tenfoldTarget(), style, &report);
        const auto texts = std::count_if(shapes.begin(), shapes.end(),
                                         [](const Shape& shape) { return shape.kind.rfind("text", 0) == 0; });
        EXPECT_EQ(texts, 200);
        EXPECT_EQ(report.lostLineTypeTexts, lines > 2);
    }
}

} // namespace
} // namespace kelplot
