// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <vector>

#include "keldriver/Renderer.h"
#include "plot/pen/ClipRegion.h"

namespace kelplot {

/// The regions that a plot is cut to, each within the one before it. The last one is in force on the renderer.
class ClipStack {
public:
    /// Hears of every change, and whether anything but the page cuts the plot after it.
    using Listener = std::function<void(bool isCut)>;

    /// Cuts the plot to the visible part of the target's page.
    ClipStack(HT_Renderer& renderer, const PlotTarget& target, Listener listener = {});

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
    Listener m_listener;
    std::vector<ClipRegion> m_regions;
};

} // namespace kelplot
