#include "plot/ClipRegion.h"

#include "keldriver/VornRgn.h"

namespace kelplot {

ClipRegion regionOf(const Box2& box) {
    return ClipRegion(KelDriver::HT_CreateRectRgnData({box.min.x, box.min.y}, {box.max.x, box.max.y}));
}

ClipRegion commonRegion(const Box2& box, const std::vector<Box2>& limits) {
    CVornRgn common(regionOf(box).get());
    for (const Box2& limit : limits) {
        CVornRgn region(regionOf(limit).get());
        common.CombineRgn(&common, &region, HT_RGN_OP_2_CDC_OP(HT_RGN_AND));
    }
    return ClipRegion(KelDriver::HT_CloneRgnData(common.GetClipRgnRef()));
}

} // namespace kelplot
