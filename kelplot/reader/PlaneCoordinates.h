// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "geometry/PlanMap.h"
#include "reader/GroupReader.h"
#include "reader/GroupValue.h"

namespace kelplot {

/// Sets the coordinate of `point` that `group` states, where the point's x has the code `xCode`. False for other
/// groups.
inline bool takePoint(const Group& group, int xCode, Vec3& point) {
    double* const axes[] = {&point.x, &point.y, &point.z};
    const int offset = group.code - xCode;
    if (offset < 0 || offset > 20 || offset % 10 != 0) {
        return false;
    }
    *axes[offset / 10] = toReal(group.value);
    return true;
}

/// A point or direction of the world in the plane that `extrusion` names; z is the height above it.
inline Vec3 toPlane(const Vec3& world, const Vec3& extrusion) {
    const auto along = [&](const Vec3& axis) {
        return axis.x * world.x + axis.y * world.y + axis.z * world.z;
    };
    const Frame3 frame = frameOfPlane(extrusion);
    return {along(frame.x), along(frame.y), along(frame.z)};
}

} // namespace kelplot
