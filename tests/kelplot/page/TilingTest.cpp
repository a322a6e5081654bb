// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "page/Tiling.h"

namespace kelplot {
namespace {

constexpr Margins margins{5.0, 6.0, 7.0, 8.0};

PageLayout sheetOf(double width, double height) {
    PageOptions options;
    options.paper = {{width, height}, true};
    options.margins = margins;
    Box2 extents;
    extents.add(Vec2{0.0, 0.0});
    extents.add(Vec2{100.0, 50.0});
    return layOutPage(extents, 1.0, options);
}

TEST(Tiling, TakesThePaperTheWayRoundThatNeedsFewerPages) {
    const struct {
        SheetSize sheet;
        SheetSize paper;
        bool keepsPosition;
        double overlap;
        int rows, columns;
        double width; ///< of a page
    } rows[] = {
        {{198.0, 283.0}, {210.0, 297.0}, false, 10.0, 1, 1, 210.0}, // just what the margins leave
        {{198.1, 283.0}, {210.0, 297.0}, false, 0.0, 1, 2, 210.0},
        {{420.0, 297.0}, {210.0, 297.0}, false, 0.0, 2, 2, 297.0},
        {{420.0, 297.0}, {210.0, 297.0}, true, 0.0, 2, 3, 210.0},
        {{420.0, 297.0}, {210.0, 297.0}, true, 190.0, 2, 29, 210.0}, // a step of 8 mm
        {{1000.0, 40.0}, {60.0, 300.0}, false, 10.0, 1, 4, 300.0},
        {{10.0, 10.0}, {50.0, 15.0}, false, 20.0, 1, 1, 50.0}, // turned it has no room
        {{30000.0, 30000.0}, {210.0, 297.0}, false, 0.0, 0, 0, 0.0},
    };
    for (const auto& row : rows) {
        const Tiling tiling{{row.paper, row.keepsPosition}, margins, row.overlap};
        const std::vector<Tile> tiles = tilesOf(sheetOf(row.sheet.width, row.sheet.height), tiling);
        ASSERT_EQ(tiles.size(), static_cast<size_t>(row.rows * row.columns)) << row.sheet.width;
        if (!tiles.empty()) {
            EXPECT_EQ(tiles.back().row, row.rows - 1);
            EXPECT_EQ(tiles.back().column, row.columns - 1);
            EXPECT_EQ(tiles[0].page.sheet.width, row.width);
        }
    }
}

TEST(Tiling, PagesLaidOnOneAnotherGiveTheSheet) {
    const PageLayout sheet = sheetOf(841.0, 594.0);
    const Tiling tiling{{{210.0, 297.0}, true}, margins, 10.0};
    const Vec2 point{30.0, 20.0};
    Box2 covered;
    for (const Tile& tile : tilesOf(sheet, tiling)) {
        // A page of 198 x 283 mm goes on 10 mm before the one before it ends.
        const Vec2 onSheet{tile.column * 188.0 - margins.left, tile.row * 273.0 - margins.top};
        const Vec2 shift = tile.page.toSheet.mapPoint(point) + onSheet - sheet.toSheet.mapPoint(point);
        EXPECT_NEAR(shift.length(), 0.0, 1e-9);
        covered.add({tile.area.min + onSheet, tile.area.max + onSheet});
        EXPECT_EQ(tile.page.limits.size(), sheet.limits.size() + 1);
    }
    EXPECT_NEAR(covered.min.x, 0.0, 1e-9);
    EXPECT_NEAR(covered.min.y, 0.0, 1e-9);
    EXPECT_NEAR(covered.max.x, 841.0, 1e-9);
    EXPECT_NEAR(covered.max.y, 594.0, 1e-9);
}

} // namespace
} // namespace kelplot
