// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "keldriver/ClipRgn.h"
#include "keldriver/Types.h"

/// Fills the bounding box of an evaluated region and tells whether it is a single rectangle of four points.
///
/// @param rgn   its first node has points
/// @param rect  may be null
bool measureEvaluatedRgn(HT_ClipRgn* rgn, HT_Double_Rectangle* rect);
