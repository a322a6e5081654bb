// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "page/PageSetup.h"

namespace kelplot {

/// How a large sheet is spread over small pages that are put together by hand.
struct Tiling {
    Paper paper;          ///< turned where that takes fewer pages, unless it keeps its position
    Margins margins;      ///< of the paper
    double overlap = 0.0; ///< millimetres of the sheet that neighbours both show
};

/// One of the pages of a sheet, from the upper left one on, row by row.
struct Tile {
    PageLayout page;
    Box2 area;       ///< millimetres from the page's upper left corner: what of the page shows the sheet
    int row = 0;     ///< from 0
    int column = 0;  ///< from 0
    int rows = 1;    ///< of the whole sheet
    int columns = 1; ///< of the whole sheet
    double overlap = 0.0;
};

/// Tells whether the margins leave more of the paper than neighbours share.
bool leavesRoom(const Tiling& tiling);

/// The pages of a sheet; none where there would be more than a thousand.
std::vector<Tile> tilesOf(const PageLayout& sheet, const Tiling& tiling);

} // namespace kelplot
