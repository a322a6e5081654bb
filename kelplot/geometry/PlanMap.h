// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>

#include "geometry/Affine2.h"
#include "geometry/Vec.h"

namespace kelplot {

/// A frame in space: where the axes and the origin of one system of coordinates lie in another.
struct Frame3 {
    Vec3 x{1.0, 0.0, 0.0};
    Vec3 y{0.0, 1.0, 0.0};
    Vec3 z{0.0, 0.0, 1.0};
    Vec3 origin;

    Vec3 mapDirection(const Vec3& v) const { return x * v.x + y * v.y + z * v.z; }
    Vec3 mapPoint(const Vec3& p) const { return mapDirection(p) + origin; }
};

/// The frame of the plane that a drawing names by its normal alone: the x axis is chosen by the
/// "arbitrary axis" rule that all programs share, so that a normal gives the same frame everywhere.
/// A normal without a direction counts as straight up.
Frame3 frameOfPlane(const Vec3& normal);

/// The frame that takes everything back; nothing where this one is flat.
std::optional<Frame3> inverseOf(const Frame3& frame);

/// A point or direction of the world in the plane that `extrusion` names; z is the height above it.
Vec3 toPlane(const Vec3& world, const Vec3& extrusion);

/// The view of a space from above, followed by an affine map of the plane.
struct PlanMap {
    Vec2 x{1.0, 0.0};
    Vec2 y{0.0, 1.0};
    Vec2 z;
    Vec2 origin;

    PlanMap() = default;
    explicit PlanMap(const Affine2& map) : x{map.a, map.b}, y{map.c, map.d}, origin{map.e, map.f} {}

    Vec2 mapDirection(const Vec3& v) const { return x * v.x + y * v.y + z * v.z; }
    Vec2 mapDirection(Vec2 v) const { return x * v.x + y * v.y; }
    Vec2 mapPoint(const Vec3& p) const { return mapDirection(p) + origin; }
    Vec2 mapPoint(Vec2 p) const { return mapDirection(p) + origin; }

    /// The map that takes coordinates of `frame` to those of its surroundings and then applies this one.
    PlanMap after(const Frame3& frame) const {
        PlanMap map;
        map.x = mapDirection(frame.x);
        map.y = mapDirection(frame.y);
        map.z = mapDirection(frame.z);
        map.origin = mapPoint(frame.origin);
        return map;
    }

    /// This map, and then another one of the plane.
    PlanMap then(const PlanMap& next) const {
        PlanMap map;
        map.x = next.mapDirection(x);
        map.y = next.mapDirection(y);
        map.z = next.mapDirection(z);
        map.origin = next.mapPoint(origin);
        return map;
    }

    /// The map of what lies `height` above the xy plane but is given as if it lay in it.
    PlanMap raised(double height) const {
        PlanMap map = *this;
        map.origin = origin + z * height;
        return map;
    }

    /// Tells whether lengths in the xy plane all grow by the same factor.
    bool keepsShapes() const;
    /// The factor by which areas of the xy plane grow, as a length.
    double meanScale() const { return std::sqrt(std::abs(cross(x, y))); }
};

} // namespace kelplot
