// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "geometry/Box2.h"
#include "geometry/PlanMap.h"

namespace kelplot {

/// How finely curves become polylines.
struct Flattening {
    double tolerance = 0.1; ///< how far the polyline may leave the curve
    Box2 interest;          ///< outside this box the polyline may leave the curve as it likes
};

/// The curve center + u·cos t + v·sin t for t from `start` to `end`, with `start` < `end`.
///
/// Any affine image of a circular or elliptical arc has this form, with the same parameters.
struct EllipticArc {
    Vec2 center;
    Vec2 u;
    Vec2 v;
    double start = 0.0;
    double end = 0.0;

    Vec2 pointAt(double t) const { return center + u * std::cos(t) + v * std::sin(t); }
    bool isWhole() const;
    bool isFinite() const;
    Box2 box() const;
    /// The box of the whole ellipse, which is quick to tell.
    Box2 hull() const;
    double majorRadius() const;

    /// Appends the points of a polyline along the arc to `out`, both ends included.
    void flatten(const Flattening& rules, std::vector<Vec2>& out) const;
};

/// An arc by its principal axes on a page whose y axis points down; angles run counter-clockwise as seen.
struct PageArc {
    Vec2 center;
    double majorRadius = 0.0;
    double minorRadius = 0.0;
    double rotation = 0.0;
    double start = 0.0; ///< eccentric angle, in [0, 2π)
    double end = 0.0;   ///< eccentric angle, at most a turn beyond `start`
};

/// `arc`, whose coordinates are those of a page with y downwards, by its principal axes.
PageArc pageArcOf(const EllipticArc& arc);

/// The end of an arc that starts at `start`, brought within one turn after it. Ends that are equal, or nearly so apart
/// from whole turns, give a whole turn.
double endWithinTurn(double start, double end);

/// The arc of a polyline from `from` to `to`, which differ; `bulge` is the tangent of a quarter of its
/// angle, positive when it runs counter-clockwise, and not 0.
EllipticArc bulgeArc(Vec2 from, Vec2 to, double bulge);

/// The image of an arc that lies in the plane at `elevation`.
EllipticArc mapArc(const EllipticArc& arc, double elevation, const PlanMap& map);

} // namespace kelplot
