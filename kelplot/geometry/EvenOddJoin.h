#pragma once

#include <vector>

#include "geometry/Vec.h"

namespace kelplot {

/// One closed boundary of an area.
struct AreaLoop {
    std::vector<Vec2> points; ///< whole numbers, so that touching loops are told exactly
    bool alwaysHole = false;  ///< cuts a hole where there is area, and never adds any
};

/// Polygons that, each filled by itself by the even-odd rule, together cover what all loops cover as one
/// even-odd area.
///
/// A hole is joined to its surroundings by a bridge of no width that runs through the area, so that it
/// shows on no device; loops that have nothing to do with each other become polygons of their own.
std::vector<std::vector<Vec2>> joinEvenOdd(const std::vector<AreaLoop>& loops);

} // namespace kelplot
