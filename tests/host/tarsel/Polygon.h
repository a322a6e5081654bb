// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <vector>

#include "gpc.h"

/// A polygon of a test's own, in and out of the clipper's records.
struct Polygon {
    using Contour = std::vector<gpc_vertex>;

    std::vector<Contour> contours;
    std::vector<bool> holes; ///< of a result, one a contour

    double area() const; ///< of a result: holes count negative
};

/// Positive for a contour that turns left. Reckoned from its first vertex, so that a small contour far from the origin
/// keeps its area.
double signedArea(const Polygon::Contour& contour);

/// Calls the clipper and releases what it gave.
Polygon clip(gpc_op op, const Polygon& subject, const Polygon& clip);

/// What has no holes flags yet: the area under the even-odd rule, by uniting it with nothing.
double evenOddArea(const Polygon& polygon);
