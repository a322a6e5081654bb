// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cmath>

#include "geometry/Vec.h"

namespace kelplot {

/// An affine map of the plane: (x, y) goes to (a·x + c·y + e, b·x + d·y + f).
struct Affine2 {
    double a = 1.0;
    double b = 0.0;
    double c = 0.0;
    double d = 1.0;
    double e = 0.0;
    double f = 0.0;

    static Affine2 translation(Vec2 by) { return {1.0, 0.0, 0.0, 1.0, by.x, by.y}; }
    static Affine2 scaling(double x, double y) { return {x, 0.0, 0.0, y, 0.0, 0.0}; }
    static Affine2 rotationRadians(double angle) {
        const double cosine = std::cos(angle);
        const double sine = std::sin(angle);
        return {cosine, sine, -sine, cosine, 0.0, 0.0};
    }

    Vec2 mapPoint(Vec2 p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
    Vec2 mapDirection(Vec2 p) const { return {a * p.x + c * p.y, b * p.x + d * p.y}; }
    double determinant() const { return a * d - b * c; }

    /// The map that applies `first` and then this one.
    Affine2 after(const Affine2& first) const {
        const Vec2 xAxis = mapDirection({first.a, first.b});
        const Vec2 yAxis = mapDirection({first.c, first.d});
        const Vec2 origin = mapPoint({first.e, first.f});
        return {xAxis.x, xAxis.y, yAxis.x, yAxis.y, origin.x, origin.y};
    }
};

} // namespace kelplot
