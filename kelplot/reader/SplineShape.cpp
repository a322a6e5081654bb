// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/SplineShape.h"

#include <algorithm>

#include "geometry/Nurbs.h"

namespace kelplot {

namespace {

constexpr int usualDegree = 3;

} // namespace

bool completeSpline(Spline& spline) {
    if (spline.degree < 1 || spline.degree > NurbsCurve::maxDegree) {
        spline.degree = usualDegree;
    }
    const size_t controlCount = spline.controlPoints.size();
    if (!areUsableWeights(spline.weights, controlCount)) {
        spline.weights.clear();
    }
    if (areUsableKnots(spline.knots, spline.degree, controlCount)) {
        return true;
    }
    if (spline.fitPoints.size() >= 2) {
        spline.knots.clear();
        spline.controlPoints.clear();
        spline.weights.clear();
        return true;
    }
    if (controlCount < 2) {
        return false;
    }
    spline.degree = std::min(spline.degree, static_cast<int>(controlCount) - 1);
    spline.knots = clampedKnots(spline.degree, controlCount);
    return true;
}

} // namespace kelplot
