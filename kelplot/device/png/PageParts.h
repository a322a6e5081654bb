// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QRect>
#include <QSize>

namespace kelplot {

/// How a page of pixels is divided where it is too large to be held whole: into bands across the page, from top to
/// bottom, and these into tiles no wider than a painter can draw. Neither depends on what is drawn.
class PageParts {
public:
    /// @param page  pixels, at least one each way
    explicit PageParts(QSize page);

    int bandCount() const { return (m_page.height() + m_bandHeight - 1) / m_bandHeight; }
    int tilesInBand() const { return (m_page.width() + m_tileWidth - 1) / m_tileWidth; }
    int count() const { return bandCount() * tilesInBand(); }

    QRect band(int index) const;
    /// The tile that stands at this place in the order of drawing.
    QRect tile(int index) const;

private:
    QSize m_page;
    int m_bandHeight;
    int m_tileWidth;
};

} // namespace kelplot
