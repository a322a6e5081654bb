// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "cli/job/PlotPlan.h"
#include "cli/job/SpaceChoice.h"

namespace kelplot {

/// The pens of a plot, and what to tell of them.
struct ChosenPens {
    PenTable table;
    QString note; ///< may be empty
    QStringList warnings;
};

/// The pens that a space of a drawing is plotted with: those that its layout names, where the plan leaves it to the
/// layout and the table lies beside the drawing, or else those of the plan.
ChosenPens chosenPens(const Drawing& drawing, const Space& space, const PlotPlan& plan);

} // namespace kelplot
