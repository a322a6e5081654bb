// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

constexpr double quarterTurn = 1.5707963267948966;
constexpr double unitsPerPixel = 0.1; ///< of `tenfoldTarget`

/// Plots with the real renderer and finds the box of what is dark, in drawing units.
Box2 inkOf(const Drawing& drawing, TextMode mode = TextMode::outlines) {
    PlotStyleOptions style;
    style.texts = mode;
    const QImage page = paintedPage(drawing, tenfoldTarget(), style);
    Box2 ink;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (qGray(page.pixel(x, y)) < 128) {
                ink.add(Vec2{x * unitsPerPixel, 100.0 - (y + 1) * unitsPerPixel});
                ink.add(Vec2{(x + 1) * unitsPerPixel, 100.0 - y * unitsPerPixel});
            }
        }
    }
    return ink;
}

Text textOf(const char* characters, double height, TextColumn column = TextColumn::left,
            TextRow row = TextRow::baseline) {
    Text text;
    text.stretches = {{characters, {}}};
    text.position = {50.0, 50.0, 0.0};
    text.alignment = {50.0, 50.0, 0.0};
    text.height = height;
    text.column = column;
    text.row = row;
    return text;
}

Drawing drawingWith(Geometry text, const char* family = "DejaVu Sans", Vec3 extrusion = {0.0, 0.0, 1.0}) {
    Drawing drawing = drawingOf(entityOf(std::move(text), extrusion));
    drawing.textStyles.push_back({});
    drawing.textStyles[0].font = {family, false, false, false};
    return drawing;
}

TEST(Text, CapitalsAreAsHighAsStated) {
    const struct {
        const char* family;
        bool bold;
    } cases[] = {{"DejaVu Sans", false}, {"DejaVu Serif", true}, {"DejaVu Sans Mono", false}, {"no such font", false}};
    for (const auto& row : cases) {
        for (const double height : {45.0, 37.3}) {
            Text text = textOf("H", height);
            text.rotation = quarterTurn;
            Drawing drawing = drawingWith(text, row.family);
            drawing.textStyles[0].font.bold = row.bold;
            EXPECT_NEAR(inkOf(drawing).width(), height, height / 100.0) << row.family;
        }
    }
}

/// An H has straight sides, and bearings of less than a unit here.
TEST(Text, HangsOnItsPoint) {
    const double h = 10.0;
    const struct {
        const char* name;
        TextColumn column;
        TextRow row;
        Vec2 corner; ///< lower left, from the point, in heights and in widths of the ink
    } cases[] = {
        {"left on the base line", TextColumn::left, TextRow::baseline, {0.0, 0.0}},
        {"centre", TextColumn::center, TextRow::baseline, {-0.5, 0.0}},
        {"right, top", TextColumn::right, TextRow::top, {-1.0, -1.0}},
        {"left, middle", TextColumn::left, TextRow::middle, {0.0, -0.5}},
        {"middle of all", TextColumn::middle, TextRow::baseline, {-0.5, -0.5}},
    };
    for (const auto& row : cases) {
        const Box2 ink = inkOf(drawingWith(textOf("HHH", h, row.column, row.row)));
        EXPECT_NEAR(ink.min.x, 50.0 + row.corner.x * ink.width(), 1.5) << row.name;
        EXPECT_NEAR(ink.min.y, 50.0 + row.corner.y * h, 0.2) << row.name;
    }
    const Box2 bottom = inkOf(drawingWith(textOf("gHy", h, TextColumn::left, TextRow::bottom)));
    EXPECT_NEAR(bottom.min.y, 50.0, 0.2) << "letters that reach down stand on the point";
}

TEST(Text, IsTurnedMirroredAndStretched) {
    const struct {
        const char* name;
        void (*change)(Text& text);
        Box2 box; ///< from the point, of a text 30 wide and 10 high
        Vec3 extrusion{0.0, 0.0, 1.0};
    } cases[] = {
        {"turned", [](Text& text) { text.rotation = quarterTurn; }, {{-10.0, 0.0}, {0.0, 30.0}}},
        {"backward", [](Text& text) { text.backward = true; }, {{-30.0, 0.0}, {0.0, 10.0}}},
        {"upside down", [](Text& text) { text.upsideDown = true; }, {{0.0, -10.0}, {30.0, 0.0}}},
        {"seen from behind", [](Text& text) { text.position.x = -50.0; }, {{-30.0, 0.0}, {0.0, 10.0}}, {0, 0, -1}},
        {"fit", [](Text& text) { text.column = TextColumn::fit; }, {{0.0, 0.0}, {40.0, 10.0}}},
        {"fit backward",
         [](Text& text) {
             text.column = TextColumn::fit;
             text.backward = true;
         },
         {{0.0, 0.0}, {40.0, 10.0}}},
        {"aligned", [](Text& text) { text.column = TextColumn::aligned; }, {{0.0, 0.0}, {40.0, 40.0 / 3.0}}},
        {"wide", [](Text& text) { text.widthFactor *= 1.5; }, {{0.0, 0.0}, {45.0, 10.0}}},
    };
    // A width factor that makes the three letters three heights wide.
    const double natural =
        inkOf(drawingWith(textOf("HHHH", 10.0))).width() - inkOf(drawingWith(textOf("H", 10.0))).width();
    for (const auto& row : cases) {
        Text text = textOf("HHH", 10.0);
        text.widthFactor = 30.0 / natural;
        text.alignment.x = 90.0;
        row.change(text);
        for (const TextMode mode : {TextMode::outlines, TextMode::fonts}) {
            const Box2 ink = inkOf(drawingWith(text, "DejaVu Sans", row.extrusion), mode);
            EXPECT_NEAR(ink.min.x, 50.0 + row.box.min.x, 2.0) << row.name;
            EXPECT_NEAR(ink.max.x, 50.0 + row.box.max.x, 2.0) << row.name;
            EXPECT_NEAR(ink.min.y, 50.0 + row.box.min.y, 2.0) << row.name;
            EXPECT_NEAR(ink.max.y, 50.0 + row.box.max.y, 2.0) << row.name;
        }
    }
}

TEST(Text, OfAVerticalStyleRunsDown) {
    const struct {
        const char* name;
        TextColumn column;
        double top;
    } cases[] = {
        {"from its point", TextColumn::left, 50.0},
        {"about it", TextColumn::center, 70.0},
        {"about it, by its middle", TextColumn::middle, 70.0},
        {"to it", TextColumn::right, 90.0},
    };
    for (const auto& row : cases) {
        Drawing drawing = drawingWith(textOf("HHH", 10.0, row.column));
        drawing.textStyles[0].vertical = true;
        const Box2 ink = inkOf(drawing);
        EXPECT_NEAR(ink.center().x, 50.0, 0.3) << row.name;
        EXPECT_LT(ink.width(), 10.0) << row.name;
        EXPECT_NEAR(ink.max.y, row.top, 0.3) << row.name;
        EXPECT_NEAR(ink.height(), 40.0, 0.3) << row.name << ": one and a half heights from letter to letter";
    }
}

TEST(Text, ExtentsAreWhatItCovers) {
    Text text = textOf("Äg|", 15.0);
    text.position.x = 20.0;
    text.obliqueAngle = 0.3;
    text.stretches.push_back({" H", {true, false, false}});
    for (const TextMode mode : {TextMode::outlines, TextMode::fonts}) {
        const Drawing drawing = drawingWith(text);
        const Box2 ink = inkOf(drawing, mode);
        const Box2 extents = visibleExtents(drawing, drawing.modelSpace);
        EXPECT_NEAR(extents.min.x, ink.min.x, 2.0);
        EXPECT_NEAR(extents.min.y, ink.min.y, 0.3);
        EXPECT_NEAR(extents.max.y, ink.max.y, 0.3);
        EXPECT_GE(extents.max.x, ink.max.x - 0.2);
        EXPECT_LE(extents.max.x, ink.max.x + 3.0) << "the box of a leaning letter";
    }
    Text nowhere = textOf("H", std::nan(""));
    EXPECT_TRUE(visibleExtents(emptyDrawing(), {entityOf(nowhere)}).isEmpty());
}

} // namespace
} // namespace kelplot
