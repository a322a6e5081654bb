// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cmath>

namespace kelplot {

/// The units in which a device takes a plot.
struct DeviceGrid {
    double unitsPerMillimetre = 1.0;
    double hairlineWidth = 1.0;   ///< units; the thinnest line that shows
    double flatteningError = 0.1; ///< units; how far a flattened curve may leave the true one
    double thinnestDashed = 0.0;  ///< units; thinner lines would not get their dashes right
};

/// The plot grid of the devices without pixels: a hundredth of a millimetre. It divides every whole metric size and
/// every inch size without a remainder, so that plots to scale are exact, and keeps the numbers short, which these
/// devices write out in digits.
constexpr int fineDotsPerInch = 2540;
constexpr double fineUnitsPerMillimetre = 100.0;

inline DeviceGrid fineGrid() {
    // A line of a tenth of a millimetre shows on any printer; a flattened curve errs by less than a tenth of a dot
    // of a printer with 600 dots per inch.
    return {fineUnitsPerMillimetre, 10.0, 0.4};
}

inline int fineUnits(double millimetres) {
    return static_cast<int>(std::lround(millimetres * fineUnitsPerMillimetre));
}

} // namespace kelplot
