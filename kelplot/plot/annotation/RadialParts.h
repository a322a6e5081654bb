// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "plot/annotation/DimensionDraft.h"

namespace kelplot {

/// Adds the lines, arrow heads and text of a dimension of a radius or diameter.
void addRadialParts(DimensionDraft& draft);

} // namespace kelplot
