// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Drawing.h"
#include "settings/FontTable.h"

namespace kelplot {

/// Gives a drawing the blocks that it leaves to its reader: those of dimensions, where their own are missing or empty,
/// and those of the common arrow heads. Dimensions that cannot be drawn become entities that are not plotted.
///
/// @param fonts  those of the plot: lines break where texts stand
void buildAnnotations(Drawing& drawing, const FontTable& fonts);

} // namespace kelplot
