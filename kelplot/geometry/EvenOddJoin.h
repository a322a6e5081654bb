// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "geometry/LoopIndex.h"

namespace kelplot {

/// Polygons that, each filled by itself by the even-odd rule, together cover what all loops cover as one
/// even-odd area. Each loop has at least three points.
///
/// A hole is joined to its surroundings by a bridge of no width that runs through the area, so that it
/// shows on no device; loops that have nothing to do with each other become polygons of their own.
std::vector<std::vector<Vec2>> joinEvenOdd(const std::vector<AreaLoop>& loops);

} // namespace kelplot
