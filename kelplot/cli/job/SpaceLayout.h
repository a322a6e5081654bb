// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QStringList>

#include "cli/job/PlotPlan.h"
#include "cli/job/SpaceChoice.h"
#include "plot/DrawingPlot.h"

namespace kelplot {

/// Where a space of a drawing lies on its sheet, and what there is to tell of that.
struct SpaceLayout {
    PageLayout page;
    ExtentsReport extents;
    QStringList warnings;
};

/// Lays a space out as its layout says, but for what the plan states.
SpaceLayout layOutSpace(const Drawing& drawing, const DrawingPlot& plot, const Space& space, const PlotPlan& plan);

} // namespace kelplot
