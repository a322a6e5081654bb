// SPDX-License-Identifier: BSD-3-Clause
#include "geometry/ArcSweep.h"

#include <cmath>

#include "geometry/Numeric.h"

namespace KelDriver::Internal {

double positiveSweep(double sweep) {
    if (curveCountFor(sweep) > mostCurves) {
        return std::fmod(sweep, fullTurn) + fullTurn; // NaN for an infinite sweep
    }
    if (sweep < -longestBackwardSweep) {
        sweep = std::fmod(sweep, fullTurn);
    }
    while (sweep < geometricTolerance) {
        sweep += fullTurn;
    }
    return sweep;
}

double curveCountFor(double positiveSweep) {
    return std::ceil(positiveSweep / quarterTurn);
}

} // namespace KelDriver::Internal
