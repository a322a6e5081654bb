// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/SplineDecoder.h"

#include <algorithm>
#include <utility>

#include "geometry/Nurbs.h"
#include "reader/GroupValue.h"

namespace kelplot {

namespace {

constexpr int usualDegree = 3;

constexpr int closedFlag = 1;

/// Starts a point with its first coordinate, or sets a later one of the point started last.
void takeCoordinate(std::vector<Vec3>& points, int axis, double value) {
    if (axis == 0) {
        points.push_back({value, 0.0, 0.0});
    } else if (!points.empty()) {
        (axis == 1 ? points.back().y : points.back().z) = value;
    }
}

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

void SplineDecoder::begin(std::string_view) {
    m_spline = Spline();
}

void SplineDecoder::take(const Group& group) {
    switch (group.code) {
    case 10:
    case 20:
    case 30:
        takeCoordinate(m_spline.controlPoints, group.code / 10 - 1, toReal(group.value));
        break;
    case 11:
    case 21:
    case 31:
        takeCoordinate(m_spline.fitPoints, group.code / 10 - 1, toReal(group.value));
        break;
    case 40:
        m_spline.knots.push_back(toReal(group.value));
        break;
    case 41:
        m_spline.weights.push_back(toReal(group.value));
        break;
    case 70:
        m_spline.closed = (toInteger(group.value) & closedFlag) != 0;
        break;
    case 71:
        m_spline.degree = toInteger(group.value);
        break;
    default:
        break;
    }
}

void SplineDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (completeSpline(m_spline)) {
        builder.addInWorld(header, std::move(m_spline));
    } else {
        builder.addUnplotted(header, "SPLINE without a shape");
    }
}

} // namespace kelplot
