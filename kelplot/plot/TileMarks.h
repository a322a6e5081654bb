// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "keldriver/Renderer.h"
#include "page/DeviceGrid.h"
#include "page/Tiling.h"

namespace kelplot {

/// Draws into a page's margins what helps to put the pages of a sheet together: marks where to cut and where to lay
/// the next page on, and a line of text that tells which page it is. Changes the renderer's clip and its
/// styles. What the margins have no room for is left out.
void drawTileMarks(const Tile& tile, const std::wstring& title, const DeviceGrid& grid, HT_Renderer& renderer);

} // namespace kelplot
