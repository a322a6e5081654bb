// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/ClipRegion.h"

#include "keldriver/VornRgn.h"

namespace kelplot {

ClipRegion regionOf(const Box2& box) {
    return ClipRegion(KelDriver::HT_CreateRectRgnData({box.min.x, box.min.y}, {box.max.x, box.max.y}));
}

ClipRegion polygonRegion(const std::vector<Vec2>& polygon) {
    std::vector<HT_Double_Point> points;
    points.reserve(polygon.size());
    for (const Vec2 point : polygon) {
        points.push_back({point.x, point.y});
    }
    return ClipRegion(KelDriver::HT_CreatePolygonRgnData(points.data(), static_cast<int>(points.size())));
}

ClipRegion combined(const ClipRegion& a, const ClipRegion& b, HT_RgnOp operation) {
    CVornRgn result(a.get());
    CVornRgn other(b.get());
    result.CombineRgn(&result, &other, HT_RGN_OP_2_CDC_OP(operation));
    return ClipRegion(KelDriver::HT_CloneRgnData(result.GetClipRgnRef()));
}

ClipRegion visibleRegion(const PlotTarget& target) {
    ClipRegion visible = regionOf(target.pageBox);
    for (const Box2& limit : target.limits) {
        visible = combined(visible, regionOf(limit), HT_RGN_AND);
    }
    return visible;
}

} // namespace kelplot
