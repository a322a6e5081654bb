// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "plot/text/TextMode.h"
#include "settings/FontTable.h"
#include "settings/PatternTable.h"
#include "settings/PenTable.h"

namespace kelplot {

/// How the entities of a drawing become ink.
struct PlotStyleOptions {
    bool monochrome = false;
    double lineWeightScale = 1.0;
    PenTable pens{};
    FontTable fonts{};
    PatternTable patterns{};             ///< for hatches that only name theirs
    TextMode texts = TextMode::outlines; ///< fonts need a `DirectPainter`
};

} // namespace kelplot
