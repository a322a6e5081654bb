// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "page/PageSetup.h"
#include "page/SheetSize.h"

namespace kelplot {
namespace {

constexpr Paper a4{{210.0, 297.0}, false};

Box2 box(double minX, double minY, double maxX, double maxY) {
    Box2 result;
    result.add(Vec2{minX, minY});
    result.add(Vec2{maxX, maxY});
    return result;
}

void expectPoint(Vec2 actual, Vec2 expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-6);
    EXPECT_NEAR(actual.y, expected.y, 1e-6);
}

PageOptions fitted(Orientation orientation = Orientation::automatic, const Paper& paper = a4, Margins margins = {}) {
    return {paper, margins, orientation, std::nullopt, false, std::nullopt};
}

PageOptions scaled(double scale, bool centred = false) {
    return {a4, {}, Orientation::automatic, scale, centred, std::nullopt};
}

constexpr auto upright = Orientation::portrait;
constexpr auto onItsSide = Orientation::landscape;
constexpr Paper own{{170.0, 90.0}, true};

/// Where two corners of the drawing must come to lie, in millimetres from the upper left corner of the sheet.
struct LayoutCase {
    const char* name;
    Box2 extents;
    double millimetresPerUnit;
    PageOptions options;
    SheetSize sheet;
    double scale;
    Vec2 lowerLeft;
    Vec2 upperRight;
    bool fits = true;
};

const LayoutCase layoutCases[] = {
    {"wide drawing turns the sheet", box(0, 0, 574, 100), 1, fitted(), {297, 210}, 0.5, {5, 130}, {292, 80}},
    {"square drawing leaves it upright", box(0, 0, 100, 100), 1, fitted(), {210, 297}, 2, {5, 248.5}, {205, 48.5}},
    {"upright on demand", box(0, 0, 400, 100), 1, fitted(upright), {210, 297}, 0.5, {5, 173.5}, {205, 123.5}},
    {"on its side on demand", box(0, 0, 100, 400), 1, fitted(onItsSide), {297, 210}, 0.5, {123.5, 205}, {173.5, 5}},
    {"own size", box(0, 0, 80, 320), 1, fitted(Orientation::automatic, own), {170, 90}, 0.25, {75, 85}, {95, 5}},
    {"own size turned on demand", box(0, 0, 80, 320), 1, fitted(upright, own), {90, 170}, 0.5, {25, 165}, {65, 5}},
    {"margins", box(0, 0, 260, 100), 1, fitted(onItsSide, a4, {20, 10, 17, 30}), {297, 210}, 1, {20, 145}, {280, 45}},
    {"inches", box(1e6, -2e6, 1e6 + 20, -2e6 + 5), 25.4, scaled(0.5), {297, 210}, 0.5, {5, 205}, {259, 141.5}},
    {"true size in the middle", box(10, 10, 110, 60), 1, scaled(1, true), {297, 210}, 1, {98.5, 130}, {198.5, 80}},
    {"just as large as the room", box(0, 0, 200, 287), 1, scaled(1), {210, 297}, 1, {5, 292}, {205, 5}},
    {"larger than the room", box(0, 0, 300, 100), 1, scaled(1), {297, 210}, 1, {5, 205}, {305, 105}, false},
    {"only a turned sheet holds it", box(0, 0, 280, 190), 1, scaled(1), {297, 210}, 1, {5, 205}, {285, 15}},
    {"level line", box(0, 7, 574, 7), 1, fitted(), {297, 210}, 0.5, {5, 105}, {292, 105}},
    {"upright line", box(3, 0, 3, 574), 1, fitted(), {210, 297}, 0.5, {105, 292}, {105, 5}},
    {"single point keeps true size", box(9, 9, 9, 9), 25.4, fitted(), {210, 297}, 1, {105, 148.5}, {105, 148.5}},
    {"nearly a point", box(1e6, 0, 1e6 + 1e-9, 0), 1, fitted(), {210, 297}, 1, {105, 148.5}, {105, 148.5}},
};

TEST(Layout, PlacesTheDrawing) {
    for (const LayoutCase& row : layoutCases) {
        SCOPED_TRACE(row.name);
        const PageLayout layout = layOutPage(row.extents, row.millimetresPerUnit, row.options);
        EXPECT_EQ(layout.sheet, row.sheet);
        EXPECT_NEAR(layout.scale, row.scale, 1e-9);
        EXPECT_EQ(layout.drawingFits, row.fits);
        expectPoint(layout.toSheet.mapPoint(row.extents.min), row.lowerLeft);
        expectPoint(layout.toSheet.mapPoint(row.extents.max), row.upperRight);
    }
}

TEST(PageTexts, AreReadOrRefused) {
    const std::pair<const char*, SheetSize> sizes[] = {{"420x297", {420, 297}}, {"100.5X80", {100.5, 80}}};
    for (const auto& [text, size] : sizes) {
        EXPECT_EQ(sheetSizeFromText(text).value_or(SheetSize()), size) << text;
    }
    for (const char* const text : {"420x", "x297", "420", "0x297", "-420x297", "420x297mm", "infx297", "nanx297",
                                   "420x20001", "1e9x1e9", "A4", ""}) {
        EXPECT_FALSE(sheetSizeFromText(text)) << text;
    }
    const std::pair<const char*, double> scales[] = {
        {"1:50", 0.02}, {"2:1", 2}, {"0.5", 0.5}, {"1/4", 0.25}, {"1:2.5", 0.4}};
    for (const auto& [text, scale] : scales) {
        EXPECT_DOUBLE_EQ(scaleFromText(text).value_or(0.0), scale) << text;
    }
    for (const char* const text :
         {"0", "1:0", "0:1", "-1:-50", "-2", "1:50:2", ":", "1:", "one", "1,5", "inf", "1e300:1e-300", "1 : 50", ""}) {
        EXPECT_FALSE(scaleFromText(text)) << text;
    }
    const std::pair<const char*, std::array<double, 4>> margins[] = {{"7.5", {7.5, 7.5, 7.5, 7.5}},
                                                                     {"20,0,10,5", {20, 0, 10, 5}}};
    for (const auto& [text, edges] : margins) {
        const Margins read = marginsFromText(text).value_or(Margins{});
        EXPECT_EQ((std::array{read.left, read.top, read.right, read.bottom}), edges) << text;
    }
    for (const char* const text : {"", "a", "1,2", "1,2,3", "1,2,3,4,5", "-1", "1,2,3,-4", "1,,3,4", "1,2,3,", "nan"}) {
        EXPECT_FALSE(marginsFromText(text)) << text;
    }
}

TEST(WindowText, NamesTwoCornersOfAnArea) {
    const Box2 window = windowFromText("-5.5,2e1,3,-1").value_or(Box2());
    EXPECT_EQ(window.min, (Vec2{-5.5, -1.0}));
    EXPECT_EQ(window.max, (Vec2{3.0, 20.0}));
    EXPECT_TRUE(windowFromText("1000000,2000000,1000000.5,2000001")) << "small and far off";
    const char* const refused[] = {"0,0,10", "0,0,10,20,30", "0,0,inf,20", "5,0,5,20", "0,7,10,7",
                                   // As small as rounding errors, and wider than any number.
                                   "1000000,0,1000000.0000001,0.0000001", "-1.7e308,0,1.7e308,1"};
    for (const char* const text : refused) {
        EXPECT_FALSE(windowFromText(text)) << text;
    }
}

void expectBox(const Box2& actual, const Box2& expected) {
    expectPoint(actual.min, expected.min);
    expectPoint(actual.max, expected.max);
}

TEST(Layout, EndsAtTheWindowOrTheMargins) {
    const struct {
        const char* name;
        PageOptions options;
        std::optional<Box2> window;
        Box2 extents;
        bool fits;
        std::optional<Box2> visible;
    } rows[] = {
        {"window in place of the extents", fitted(), box(10, 10, 584, 110), box(0, 0, 100, 4000), true,
         box(5, 80, 292, 130)},
        {"window to scale", scaled(1.0), box(0, 0, 1000, 50), box(0, 0, 1, 1), false, box(5, 155, 292, 205)},
        {"what fits is not cut at the margins", scaled(1.0), {}, box(0, 0, 200, 100), true, {}},
        {"what does not is", scaled(1.0), {}, box(0, 0, 300, 100), false, box(5, 5, 292, 205)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        PageOptions options = row.options;
        options.window = row.window;
        const PageLayout layout = layOutPage(row.extents, 1.0, options);
        EXPECT_EQ(layout.drawingFits, row.fits);
        ASSERT_EQ(layout.visiblePart().has_value(), row.visible.has_value());
        if (row.visible) {
            expectBox(*layout.visiblePart(), *row.visible);
        }
    }
}

TEST(Layout, ExtentsWithoutAnyMeaningStillGiveAFiniteMap) {
    constexpr double huge = std::numeric_limits<double>::max();
    const Box2 extents[] = {Box2(), box(-INFINITY, 0, INFINITY, 1), box(-huge, -huge, huge, huge),
                            box(0, 0, 5e-324, 5e-324)};
    for (const Box2& each : extents) {
        const PageLayout layout = layOutPage(each, 1.0, fitted());
        const Vec2 origin = layout.toSheet.mapPoint({0.0, 0.0});
        EXPECT_TRUE(std::isfinite(origin.x) && std::isfinite(origin.y)) << each.min.x;
        EXPECT_GT(layout.scale, 0.0) << each.min.x;
    }
}

TEST(Layout, RoomIsLookedForInEveryAllowedPosition) {
    const Margins wide{120, 5, 120, 5};
    EXPECT_TRUE(leavesRoom({a4, wide, Orientation::automatic, std::nullopt, false, std::nullopt}))
        << "on its side there is room";
    EXPECT_TRUE(leavesRoom({a4, wide, Orientation::landscape, std::nullopt, false, std::nullopt}));
    EXPECT_FALSE(leavesRoom({a4, wide, Orientation::portrait, std::nullopt, false, std::nullopt}));
    EXPECT_FALSE(leavesRoom({{{210, 297}, true}, wide, Orientation::automatic, std::nullopt, false, std::nullopt}));

    const PageLayout layout =
        layOutPage(box(0, 0, 10, 100), 1.0, {a4, wide, Orientation::automatic, std::nullopt, false, std::nullopt});
    EXPECT_DOUBLE_EQ(layout.sheet.width, 297.0) << "the upright sheet has no room for the upright drawing";
}

TEST(PlotTargetForLayout, TakesTheGridOfTheDevice) {
    const PageLayout layout = layOutPage(box(0, 0, 20, 10), 1.0, scaled(1.0));
    const DeviceGrid grid{100.0, 10.0, 0.5, 3.0};
    const PlotTarget target = plotTargetFor(layout, grid);
    expectPoint(target.toDevice.mapPoint({0.0, 0.0}), {500.0, 20500.0});
    expectPoint(target.toDevice.mapPoint({20.0, 10.0}), {2500.0, 19500.0});
    expectPoint(target.pageBox.min, {0.0, 0.0});
    expectPoint(target.pageBox.max, {29700.0, 21000.0});
    EXPECT_DOUBLE_EQ(target.deviceUnitsPerMillimetre, 100.0);
    EXPECT_DOUBLE_EQ(target.thinnestDashed, grid.thinnestDashed);
    expectBox(target.visibleBox(), target.pageBox);

    const PageLayout cut = layOutPage(box(0, 0, 300, 10), 1.0, scaled(1.0));
    expectBox(plotTargetFor(cut, {100.0, 10.0, 0.5}).visibleBox(), box(500, 500, 29200, 20500));
}

} // namespace
} // namespace kelplot
