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

std::optional<Frame3> inverseOf(const Frame3& frame) {
    const Vec3 rows[] = {cross(frame.y, frame.z), cross(frame.z, frame.x), cross(frame.x, frame.y)};
    const double volume = dot(frame.x, rows[0]);
    if (!std::isnormal(volume)) {
        return std::nullopt;
    }
    const double k = 1.0 / volume;
    Frame3 inverse;
    inverse.x = Vec3{rows[0].x, rows[1].x, rows[2].x} * k;
    inverse.y = Vec3{rows[0].y, rows[1].y, rows[2].y} * k;
    inverse.z = Vec3{rows[0].z, rows[1].z, rows[2].z} * k;
    inverse.origin = inverse.mapDirection(frame.origin) * -1.0;
    return inverse;
}

bool PlanMap::keepsShapes() const {
    constexpr double tolerance = 1e-6;
    const double square = dot(x, x) + dot(y, y);
    return std::abs(dot(x, y)) <= tolerance * square && std::abs(dot(x, x) - dot(y, y)) <= tolerance * square;
}

Vec3 toPlane(const Vec3& world, const Vec3& extrusion) {
    const Frame3 frame = frameOfPlane(extrusion);
    return {dot(frame.x, world), dot(frame.y, world), dot(frame.z, world)};
}

} // namespace kelplot
