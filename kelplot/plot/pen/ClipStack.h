// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "keldriver/Renderer.h"
#include "plot/pen/ClipRegion.h"

namespace kelplot {

/// The regions that a plot is cut to, each within the one before it. The last one is in force on the renderer.
class ClipStack {
public:
    /// Cuts the plot to the visible part of the target's page.
    ClipStack(HT_Renderer& renderer, const PlotTarget& target);

    /// Cuts what is drawn from here on to what `region` has in common with the region in force, or leaves out what
    /// lies in it.
    enum class Keeps { inside, outside };
    void push(const ClipRegion& region, Keeps part);
    /// Cuts to a polygon in device units, or leaves out what lies in it.
    void push(const std::vector<Vec2>& polygon, Keeps part);
    /// Goes back to the region before the last one.
    void pop();

private:
    void apply();

    HT_Renderer& m_renderer;
    std::vector<ClipRegion> m_regions;
};

} // namespace kelplot
