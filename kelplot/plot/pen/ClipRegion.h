// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "geometry/Box2.h"
#include "keldriver/ClipRgn.h"
#include "page/PlotTarget.h"

namespace kelplot {

struct RegionDeleter {
    void operator()(HT_ClipRgn* region) const { KelDriver::HT_DeleteRgn(region); }
};

/// Owns a region of the library and releases it.
using ClipRegion = std::unique_ptr<HT_ClipRgn, RegionDeleter>;

ClipRegion regionOf(const Box2& box);
ClipRegion polygonRegion(const std::vector<Vec2>& polygon);

/// Two regions combined by `operation`; without an area where nothing is left.
ClipRegion combined(const ClipRegion& a, const ClipRegion& b, HT_RgnOp operation);

/// The part of the page that shows. Where that is nothing, a region without an area.
ClipRegion visibleRegion(const PlotTarget& target);

} // namespace kelplot
