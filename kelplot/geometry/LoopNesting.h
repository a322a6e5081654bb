// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "geometry/LoopIndex.h"

namespace kelplot {

/// Takes away the loops that lie in more than `mostDepth` others. Loops that are always holes stay and do not count.
void dropNested(std::vector<AreaLoop>& loops, size_t mostDepth);

} // namespace kelplot
