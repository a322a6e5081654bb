// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "base/Progress.h"
#include "drawing/Drawing.h"
#include "geometry/Box2.h"
#include "keldriver/Renderer.h"
#include "page/PlotTarget.h"
#include "plot/EntityWalk.h"
#include "plot/PlotOptions.h"
#include "plot/picture/PictureStore.h"
#include "settings/FontTable.h"

namespace kelplot {

/// The extents of what `plotEntities` would draw, in drawing units; empty when that is nothing. `report`, if given,
/// receives what is left out of them.
Box2 visibleExtents(const Drawing& drawing, const std::vector<Entity>& entities, WalkReport* report = nullptr,
                    const FontTable& fonts = {});

/// What a plot leaves out.
struct PlotReport : WalkReport {
    PictureFaults missingPictures;
};

/// Draws `entities` of `drawing` through `renderer`, which has started to render and is limited to the visible
/// part of the page from then on. Returns what is left out.
PlotReport plotEntities(const Drawing& drawing, const std::vector<Entity>& entities, const PlotTarget& target,
                        const PlotStyleOptions& style, HT_Renderer& renderer, const Progress& progress);

} // namespace kelplot
