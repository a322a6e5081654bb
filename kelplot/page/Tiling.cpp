// SPDX-License-Identifier: GPL-2.0-or-later
#include "page/Tiling.h"

#include <algorithm>
#include <cmath>

namespace kelplot {
namespace {

/// How pages of one size cover a sheet.
struct Grid {
    SheetSize paper;
    SheetSize room; ///< what the margins leave of a page
    double columns; ///< whole, and may be too large for an integer
    double rows;

    double pages() const { return columns * rows; }
};

double pagesAlong(double length, double room, double overlap) {
    constexpr double rounding = 1e-6; // of a millimetre
    return std::max(1.0, std::ceil((length - overlap - rounding) / (room - overlap)));
}

Grid gridOf(const SheetSize& sheet, const SheetSize& paper, const Tiling& tiling) {
    const SheetSize room{paper.width - tiling.margins.left - tiling.margins.right,
                         paper.height - tiling.margins.top - tiling.margins.bottom};
    return {paper, room, pagesAlong(sheet.width, room.width, tiling.overlap),
            pagesAlong(sheet.height, room.height, tiling.overlap)};
}

bool hasRoom(const SheetSize& paper, const Tiling& tiling) {
    return paper.width - tiling.margins.left - tiling.margins.right > tiling.overlap &&
           paper.height - tiling.margins.top - tiling.margins.bottom > tiling.overlap;
}

/// The way round that takes fewer pages; upright where both take as many.
Grid fewestPages(const SheetSize& sheet, const Tiling& tiling) {
    const SheetSize& upright = tiling.paper.size;
    if (tiling.paper.keepsPosition || !hasRoom(upright.turned(), tiling)) {
        return gridOf(sheet, upright, tiling);
    }
    const Grid turned = gridOf(sheet, upright.turned(), tiling);
    if (!hasRoom(upright, tiling)) {
        return turned;
    }
    const Grid first = gridOf(sheet, upright, tiling);
    return turned.pages() < first.pages() ? turned : first;
}

Tile tileAt(int row, int column, const PageLayout& sheet, const Grid& grid, const Tiling& tiling) {
    const Vec2 onSheet{column * (grid.room.width - tiling.overlap), row * (grid.room.height - tiling.overlap)};
    const Vec2 shift = Vec2{tiling.margins.left, tiling.margins.top} - onSheet;
    Tile tile;
    tile.row = row;
    tile.column = column;
    tile.rows = static_cast<int>(grid.rows);
    tile.columns = static_cast<int>(grid.columns);
    tile.overlap = tiling.overlap;
    tile.area.add(Vec2{tiling.margins.left, tiling.margins.top});
    tile.area.add(Vec2{std::min(tiling.margins.left + grid.room.width, sheet.sheet.width + shift.x),
                       std::min(tiling.margins.top + grid.room.height, sheet.sheet.height + shift.y)});
    tile.page = sheet;
    tile.page.sheet = grid.paper;
    tile.page.toSheet = Affine2::translation(shift).after(sheet.toSheet);
    for (Box2& limit : tile.page.limits) {
        limit = {limit.min + shift, limit.max + shift};
    }
    tile.page.limits.push_back(tile.area);
    return tile;
}

} // namespace

bool leavesRoom(const Tiling& tiling) {
    return hasRoom(tiling.paper.size, tiling) ||
           (!tiling.paper.keepsPosition && hasRoom(tiling.paper.size.turned(), tiling));
}

std::vector<Tile> tilesOf(const PageLayout& sheet, const Tiling& tiling) {
    constexpr double mostPages = 1000.0;
    const Grid grid = fewestPages(sheet.sheet, tiling);
    if (!(grid.pages() <= mostPages)) {
        return {};
    }
    std::vector<Tile> tiles;
    for (int row = 0; row < static_cast<int>(grid.rows); ++row) {
        for (int column = 0; column < static_cast<int>(grid.columns); ++column) {
            tiles.push_back(tileAt(row, column, sheet, grid, tiling));
        }
    }
    return tiles;
}

} // namespace kelplot
