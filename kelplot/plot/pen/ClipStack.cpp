// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/ClipStack.h"

namespace kelplot {

ClipStack::ClipStack(HT_Renderer& renderer, const PlotTarget& target) : m_renderer(renderer) {
    m_regions.push_back(visibleRegion(target));
    m_renderer.SetClipRgn(m_regions.back().get());
}

void ClipStack::push(const ClipRegion& region, Keeps part) {
    m_regions.push_back(combined(m_regions.back(), region, part == Keeps::inside ? HT_RGN_AND : HT_RGN_DIFF));
    apply();
}

void ClipStack::push(const std::vector<Vec2>& polygon, Keeps part) {
    push(polygon.size() > 2 ? polygonRegion(polygon) : regionOf({{0.0, 0.0}, {0.0, 0.0}}), part);
}

void ClipStack::pop() {
    m_regions.pop_back();
    apply();
}

void ClipStack::apply() {
    m_renderer.SetClipRgn(m_regions.back().get());
}

} // namespace kelplot
