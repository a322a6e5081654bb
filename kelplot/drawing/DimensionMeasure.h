// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <optional>

#include "drawing/Annotation.h"
#include "geometry/Box2.h"

namespace kelplot {

/// What a dimension of a distance measures, in the plane of the entity.
struct LinearMeasure {
    Vec2 along;               ///< the dimension line's direction, from its first end to its second
    Vec2 extension;           ///< direction of the extension lines
    std::array<Vec2, 2> ends; ///< of the dimension line
    double length = 0.0;
};

LinearMeasure linearMeasureOf(const Dimension& dimension);

/// What a dimension of an angle measures, in the plane of the entity.
struct AngleMeasure {
    Vec2 centre;
    double radius = 0.0; ///< of the dimension arc
    double start = 0.0;  ///< radians, of the end from which the arc runs counter-clockwise
    double sweep = 0.0;  ///< radians, at most a turn
    /// Where the extension line of the start and that of the other end come from; none where the arc ends on an arm.
    std::array<std::optional<Vec2>, 2> arms;
};

/// Nothing where there is no angle.
std::optional<AngleMeasure> angleMeasureOf(const Dimension& dimension);

/// What the points cover by which a dimension is stated, its text's included where that is stated.
Box2 boxOfPoints(const Dimension& dimension);

/// The length that a dimension measures in drawing units, or its angle in radians.
double measureOf(const Dimension& dimension);

inline bool isAngle(Dimension::Kind kind) {
    return kind == Dimension::Kind::angleOfLines || kind == Dimension::Kind::angleOfPoints;
}

} // namespace kelplot
