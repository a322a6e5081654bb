// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "geometry/Affine2.h"
#include "geometry/Box2.h"

namespace kelplot {

/// Where a plot goes: the map from drawing units to device units, and the size of a millimetre there.
struct PlotTarget {
    Affine2 toDevice; ///< turns the y axis over: device y grows downwards
    double deviceUnitsPerMillimetre = 1.0;
    double hairlineWidth = 1.0;   ///< device units; the thinnest line that shows on the device
    double flatteningError = 0.1; ///< device units; how far a flattened curve may leave the true one
    double thinnestDashed = 0.0;  ///< device units; thinner lines would not get their dashes right
    Box2 pageBox;                 ///< the page in device units
    std::vector<Box2> limits;     ///< device units; only what lies in all of them shows
    std::optional<Box2> part;     ///< device units; what lies off it may be passed over; none: nothing

    /// The part of the page that shows, as a box; empty when nothing does.
    Box2 visibleBox() const;
    /// What of that is to be drawn.
    Box2 drawnBox() const { return part ? visibleBox().intersected(*part) : visibleBox(); }
};

} // namespace kelplot
