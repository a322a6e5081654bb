// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>
#include <QRect>

namespace kelplot {

/// Which part of a page is to be drawn, and how large.
struct PictureOrder {
    double pixelsPerMillimetre = 1.0;
    QRect place; ///< of the part on the page, in pixels

    friend bool operator==(const PictureOrder& a, const PictureOrder& b) {
        return a.pixelsPerMillimetre == b.pixelsPerMillimetre && a.place == b.place;
    }
};

/// A picture of a part of a page.
struct PagePicture {
    PictureOrder order;
    QImage image; ///< null: none yet
};

} // namespace kelplot
