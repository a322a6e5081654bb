// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "geometry/Vec.h"

namespace kelplot {

/// A picture that a drawing refers to.
struct ImageDefinition {
    std::string path;        ///< UTF-8, as the drawing states it
    Vec2 size;               ///< pixels, as the drawing states it
    std::string folder = {}; ///< UTF-8, where the drawing lies that states it; empty: Drawing::folder
};

/// A placed picture, in world coordinates.
struct Image {
    uint32_t definition = 0; ///< index into Drawing::images
    Vec3 position;           ///< of the lower left corner
    Vec3 u;                  ///< along one pixel to the right
    Vec3 v;                  ///< along one pixel upward
    Vec2 size;               ///< pixels
    bool shown = true;
    int brightness = 50;       ///< per cent, 50 as it is
    int contrast = 50;         ///< per cent, 50 as it is
    int fade = 0;              ///< per cent towards the paper
    bool transparent = false;  ///< see-through pixels show what lies below
    bool clipped = false;      ///< `clip` applies
    bool clipInverted = false; ///< what is inside is left out
    size_t crossings = 0;      ///< of `clip` with itself
    bool lostBorder = false;   ///< it has a clip that is a tangle; the box around it stands for it, or nothing
    std::vector<Vec2> clip;    ///< pixels from the upper left corner of the picture, y downward

    /// Where a point of the picture lies, given in the coordinates of `clip`.
    Vec3 pointAt(Vec2 pixel) const { return position + u * pixel.x + v * (size.y - pixel.y); }
    /// The corners, in order around the picture from the upper left one.
    std::vector<Vec2> corners() const { return {{0.0, 0.0}, {size.x, 0.0}, size, {0.0, size.y}}; }
    /// The outer border of what the picture shows.
    std::vector<Vec2> outline() const { return clipped && !clipInverted ? clip : corners(); }
};

/// An area that covers what lies below it with the colour of the paper, in world coordinates.
struct Wipeout {
    std::vector<Vec3> boundary;
};

} // namespace kelplot
