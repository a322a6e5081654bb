// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <vector>

#include "geometry/Vec.h"

namespace kelplot {

/// A border that crosses itself more often was drawn by no person. The time that it takes to cut something along a
/// border grows faster than the number of these places.
constexpr size_t mostCrossings = 50;

/// How many times a polygon crosses itself, not counting where it only touches; some number above `mostCrossings` for
/// one that does so more often, that would take too long to count, or that is not finite.
size_t crossingsIn(const std::vector<Vec2>& polygon);

/// The corners of the box around a border, for one that cannot be cut along; none where that is not finite.
std::vector<Vec2> boxAround(const std::vector<Vec2>& border);

} // namespace kelplot
