// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Drawing.h"
#include "page/PageSetup.h"

namespace kelplot {

/// Which options of a page the caller stated, so that a layout's plot settings do not count there.
struct StatedPage {
    bool paper = false;
    bool margins = false;
    bool placement = false; ///< scale, window, or how the drawing or the paper lies
};

/// The options of a page for a layout: its plot settings but for what the caller stated. Nothing where these settings
/// give no sheet that can be plotted on.
///
/// @param extents  of what is on the sheet, in its coordinates
std::optional<PageOptions> pageOfLayout(const PlotSettings& settings, const Box2& extents, const PageOptions& asked,
                                        const StatedPage& stated);

} // namespace kelplot
