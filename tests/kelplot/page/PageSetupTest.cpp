// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "page/PageSetup.h"
#include "page/SheetSize.h"

namespace kelplot {
namespace {

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

TEST(Layout, ExtentsWithoutAnyMeaningStillGiveAFiniteMap) {
    constexpr double huge = std::numeric_limits<double>::max();
    const Box2 extents[] = {
        Box2(), {{-INFINITY, 0}, {INFINITY, 1}}, {{-huge, -huge}, {huge, huge}}, {{0, 0}, {5e-324, 5e-324}}};
    for (const Box2& each : extents) {
        const PageLayout layout = layOutPage(each, 1.0, {});
        const Vec2 origin = layout.toSheet.mapPoint({0.0, 0.0});
        EXPECT_TRUE(std::isfinite(origin.x) && std::isfinite(origin.y)) << each.min.x;
        EXPECT_GT(layout.scale, 0.0) << each.min.x;
    }
}

TEST(PlotTarget, TakesTheGridOfTheDevice) {
    const PlotTarget target = plotTargetFor(layOutPage(Box2(), 1.0, {}), {100.0, 10.0, 0.5, 3.0});
    EXPECT_EQ((std::array{target.deviceUnitsPerMillimetre, target.hairlineWidth, target.flatteningError,
                          target.thinnestDashed}),
              (std::array{100.0, 10.0, 0.5, 3.0}));
}

} // namespace
} // namespace kelplot
