// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>
#include <tuple>

#include "drawing/Image.h"

namespace kelplot {

/// How the pixels of a picture come out on paper, which is white.
struct PictureLook {
    int brightness = 50;      ///< per cent, 50 as it is
    int contrast = 50;        ///< per cent, 50 as it is
    int fade = 0;             ///< per cent towards the paper
    bool transparent = false; ///< see-through pixels stay so; else the paper shows there
    bool grey = false;

    PictureLook() = default;
    PictureLook(const Image& image, bool inGrey)
        : brightness(image.brightness), contrast(image.contrast), fade(image.fade), transparent(image.transparent),
          grey(inGrey) {}

    bool keepsColours() const { return brightness == 50 && contrast == 50 && fade == 0 && !grey; }
    bool operator<(const PictureLook& other) const { return key() < other.key(); }

private:
    std::tuple<int, int, int, bool, bool> key() const { return {brightness, contrast, fade, transparent, grey}; }
};

/// Changes the pixels of `image`, which is of `Format_ARGB32`.
void applyLook(const PictureLook& look, QImage& image);

} // namespace kelplot
