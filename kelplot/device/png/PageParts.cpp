// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/png/PageParts.h"

#include <algorithm>

namespace kelplot {
namespace {

constexpr qint64 bytesPerPixel = 4;

/// A band takes as much. Each costs a walk through the drawing, so larger pages get larger bands.
constexpr qint64 smallBand = qint64(20) << 20;
constexpr qint64 largeBand = qint64(112) << 20;
constexpr int mostSmallBands = 8;

/// The painter draws coordinates up to 32,767 pixels; this leaves room for what reaches over the edge.
constexpr int widestTile = 16384;

int bandHeightFor(QSize page) {
    const qint64 row = page.width() * bytesPerPixel;
    const bool fewBands = row * page.height() <= mostSmallBands * smallBand;
    const qint64 most = std::max(qint64(1), (fewBands ? smallBand : largeBand) / row);
    const qint64 bands = (page.height() + most - 1) / most;
    return static_cast<int>((page.height() + bands - 1) / bands); // all as high, but for rounding
}

int tileWidthFor(int pageWidth) {
    const int tiles = (pageWidth + widestTile - 1) / widestTile;
    return (pageWidth + tiles - 1) / tiles;
}

} // namespace

PageParts::PageParts(QSize page)
    : m_page(page), m_bandHeight(std::min(bandHeightFor(page), widestTile)), m_tileWidth(tileWidthFor(page.width())) {
}

QRect PageParts::band(int index) const {
    const int top = index * m_bandHeight;
    return {0, top, m_page.width(), std::min(m_bandHeight, m_page.height() - top)};
}

QRect PageParts::tile(int index) const {
    const QRect whole = band(index / tilesInBand());
    const int left = index % tilesInBand() * m_tileWidth;
    return {left, whole.top(), std::min(m_tileWidth, m_page.width() - left), whole.height()};
}

} // namespace kelplot
