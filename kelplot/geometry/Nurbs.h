// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "geometry/EllipticArc.h"

namespace kelplot {

/// A rational B-spline curve in a plane.
struct NurbsCurve {
    /// A control point in homogeneous form: the position times the weight, and the weight.
    struct Control {
        Vec2 scaled;
        double weight = 1.0;
    };
    static constexpr int maxDegree = 25;

    int degree = 3;
    std::vector<double> knots; ///< one for each control point and `degree` + 1 more, never falling
    std::vector<Control> controls;

    /// Appends the points of a polyline along the curve to `out`, both ends included.
    void flatten(const Flattening& rules, std::vector<Vec2>& out) const;
};

/// Tells whether knots are finite, never fall and are as many as a curve with so many control points needs, which
/// then has some length.
bool areUsableKnots(const std::vector<double>& knots, int degree, size_t controlCount);
/// Tells whether there is one weight for each control point, finite and positive.
bool areUsableWeights(const std::vector<double>& weights, size_t controlCount);

/// Knots for a curve that starts at its first control point and ends at its last one.
std::vector<double> clampedKnots(int degree, size_t controlCount);

/// The smooth curve through `points`, of which there are at least two, none equal to its neighbour. A
/// closed one comes back to the first point without a corner.
NurbsCurve curveThrough(const std::vector<Vec2>& points, bool closed);

} // namespace kelplot
