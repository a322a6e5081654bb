// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "plot/annotation/DimensionDraft.h"

namespace kelplot {

/// Adds the arc, lines, arrow heads and text of a dimension of an angle.
void addAngleParts(DimensionDraft& draft);

} // namespace kelplot
