// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "plot/entity/PlotTools.h"

namespace kelplot {

/// Draws the texts that stand in the line types of what was drawn last.
void drawLineTypeTexts(PlotTools& tools);

} // namespace kelplot
