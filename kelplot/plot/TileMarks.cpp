// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/TileMarks.h"

#include <algorithm>
#include <iterator>

#include "plot/pen/ClipRegion.h"

namespace kelplot {
namespace {

constexpr double longestMark = 4.0; // millimetres
constexpr double gap = 0.5;         // between the marks and what shows of the sheet
constexpr double lineWidth = 0.1;
constexpr double tallestText = 2.5;

class MarkPen {
public:
    MarkPen(const SheetSize& page, const DeviceGrid& grid, HT_Renderer& renderer)
        : m_units(grid.unitsPerMillimetre), m_renderer(renderer) {
        m_renderer.SetClipRgn(regionOf({{0.0, 0.0}, Vec2{page.width, page.height} * m_units}).get());
        m_renderer.SetColor(0);
        m_renderer.SetAlpha(255);
        m_renderer.SetLineType(HT_PlotStyle::LineTypeSolid, nullptr, 0);
        m_renderer.SetLineEndStyle(HT_PlotStyle::LineEndFlat);
        m_renderer.SetLineWeight(std::max(lineWidth * m_units, grid.hairlineWidth));
    }

    void draw(Vec2 from, Vec2 to) const {
        const HT_Double_Point ends[] = {{from.x * m_units, from.y * m_units}, {to.x * m_units, to.y * m_units}};
        m_renderer.DrawPolyline(ends, 2);
    }

    void write(std::wstring text, Vec2 at, double height) const {
        HT_Font font{};
        font.height = height * m_units;
        const std::wstring family = L"DejaVu Sans";
        std::copy_n(family.begin(), std::min(family.size(), std::size(font.faceName) - 1), font.faceName);
        m_renderer.DrawText(text.data(), static_cast<int>(text.size()), font, {at.x * m_units, at.y * m_units}, 0.0,
                            1.0, nullptr);
    }

private:
    double m_units;
    HT_Renderer& m_renderer;
};

/// Marks a line down the page, above and below what shows of the sheet.
void markColumn(double x, const Tile& tile, const MarkPen& pen) {
    const double above = std::min(tile.area.min.y - gap, longestMark);
    const double below = std::min(tile.page.sheet.height - tile.area.max.y - gap, longestMark);
    if (above > 0.0) {
        pen.draw({x, tile.area.min.y - gap - above}, {x, tile.area.min.y - gap});
    }
    if (below > 0.0) {
        pen.draw({x, tile.area.max.y + gap}, {x, tile.area.max.y + gap + below});
    }
}

/// Marks a line across the page, to the left and the right of what shows of the sheet.
void markRow(double y, const Tile& tile, const MarkPen& pen) {
    const double before = std::min(tile.area.min.x - gap, longestMark);
    const double behind = std::min(tile.page.sheet.width - tile.area.max.x - gap, longestMark);
    if (before > 0.0) {
        pen.draw({tile.area.min.x - gap - before, y}, {tile.area.min.x - gap, y});
    }
    if (behind > 0.0) {
        pen.draw({tile.area.max.x + gap, y}, {tile.area.max.x + gap + behind, y});
    }
}

/// Clear of the marks at the page's lower left corner.
void writeTitle(const Tile& tile, const std::wstring& title, const MarkPen& pen) {
    const double room = tile.page.sheet.height - tile.area.max.y - 2.0 * gap;
    const double height = std::min(tallestText, room);
    if (height > 1.0) {
        const std::wstring place = L": row " + std::to_wstring(tile.row + 1) + L" of " + std::to_wstring(tile.rows) +
                                   L", column " + std::to_wstring(tile.column + 1) + L" of " +
                                   std::to_wstring(tile.columns);
        const double x = tile.area.min.x + tile.overlap + 2.0 * gap;
        pen.write(title + place, {x, tile.area.max.y + gap + height}, height);
    }
}

} // namespace

void drawTileMarks(const Tile& tile, const std::wstring& title, const DeviceGrid& grid, HT_Renderer& renderer) {
    const MarkPen pen(tile.page.sheet, grid, renderer);
    if (tile.column > 0) {
        markColumn(tile.area.min.x + tile.overlap, tile, pen);
    }
    if (tile.column + 1 < tile.columns) {
        markColumn(tile.area.max.x, tile, pen);
    }
    if (tile.row > 0) {
        markRow(tile.area.min.y + tile.overlap, tile, pen);
    }
    if (tile.row + 1 < tile.rows) {
        markRow(tile.area.max.y, tile, pen);
    }
    writeTitle(tile, title, pen);
}

} // namespace kelplot
