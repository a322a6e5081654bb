// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "drawing/Drawing.h"

namespace kelplot {

/// Puts layouts into their order, and names those that have no name by their numbers in it.
void orderLayouts(std::vector<Layout>& layouts);

} // namespace kelplot
