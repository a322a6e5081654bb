// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/CopyGrid.h"

#include "geometry/Interval.h"

#include <algorithm>
#include <cmath>

namespace kelplot {

namespace {

/// Copies without a spacing lie on one another and show as one.
int countOf(int stated, double spacing) {
    return spacing == 0.0 ? 1 : std::max(stated, 1);
}

/// Narrows `indices` to those for which `ink`, moved by `step` an index, meets `visible`.
void narrowToVisible(const Interval& ink, double step, const Interval& visible, Interval& indices) {
    narrowToSlab(0.0, step, {visible.low - ink.high, visible.high - ink.low}, indices);
}

} // namespace

CopyGrid::CopyGrid(const Insert& insert, const Vec3& basePoint, const PlanMap& map)
    : columns(countOf(insert.columns, insert.columnSpacing)), rows(countOf(insert.rows, insert.rowSpacing)) {
    // Rows and columns run along the turned axes, unscaled.
    const double cosine = std::cos(insert.rotation);
    const double sine = std::sin(insert.rotation);
    const Vec3 alongColumns{cosine, sine, 0.0};
    const Vec3 alongRows{-sine, cosine, 0.0};
    Frame3 frame;
    frame.x = alongColumns * insert.scale.x;
    frame.y = alongRows * insert.scale.y;
    frame.z = {0.0, 0.0, insert.scale.z};
    frame.origin = insert.position - frame.mapDirection(basePoint);
    first = map.after(frame);
    columnStep = map.mapDirection(alongColumns * insert.columnSpacing);
    rowStep = map.mapDirection(alongRows * insert.rowSpacing);
}

PlanMap CopyGrid::mapOf(int column, int row) const {
    PlanMap map = first;
    map.origin = first.origin + columnStep * column + rowStep * row;
    return map;
}

CopyGrid::Range CopyGrid::columnsThatMeet(const Box2& visible, const Box2& ink, int row) const {
    if (ink.isEmpty() || visible.isEmpty()) {
        return {};
    }
    const Vec2 min = ink.min + rowStep * row;
    const Vec2 max = ink.max + rowStep * row;
    Interval indices{0.0, columns - 1.0};
    narrowToVisible({min.x, max.x}, columnStep.x, {visible.min.x, visible.max.x}, indices);
    narrowToVisible({min.y, max.y}, columnStep.y, {visible.min.y, visible.max.y}, indices);
    if (!(indices.low <= indices.high)) {
        return {};
    }
    // The quotients are not exact.
    const double begin = std::max(std::floor(indices.low) - 1.0, 0.0);
    const double end = std::min(std::ceil(indices.high) + 2.0, double(columns));
    return {static_cast<int>(begin), static_cast<int>(end)};
}

} // namespace kelplot
