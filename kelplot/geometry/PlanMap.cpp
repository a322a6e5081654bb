// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/PlanMap.h"

namespace kelplot {

Frame3 frameOfPlane(const Vec3& normal) {
    const double length = normal.length();
    if (!(length > 0.0) || !std::isfinite(length)) {
        return {};
    }
    constexpr double nearlyVertical = 1.0 / 64.0;
    const Vec3 up = normal * (1.0 / length);
    const bool vertical = std::abs(up.x) < nearlyVertical && std::abs(up.y) < nearlyVertical;
    const Vec3 across = vertical ? cross(Vec3{0.0, 1.0, 0.0}, up) : cross(Vec3{0.0, 0.0, 1.0}, up);
    Frame3 frame;
    frame.x = across * (1.0 / across.length());
    frame.y = cross(up, frame.x);
    frame.z = up;
    return frame;
}

bool PlanMap::keepsShapes() const {
    constexpr double tolerance = 1e-6;
    const double square = dot(x, x) + dot(y, y);
    return std::abs(dot(x, y)) <= tolerance * square && std::abs(dot(x, x) - dot(y, y)) <= tolerance * square;
}

Vec3 toPlane(const Vec3& world, const Vec3& extrusion) {
    const auto along = [&](const Vec3& axis) {
        return axis.x * world.x + axis.y * world.y + axis.z * world.z;
    };
    const Frame3 frame = frameOfPlane(extrusion);
    return {along(frame.x), along(frame.y), along(frame.z)};
}

} // namespace kelplot
