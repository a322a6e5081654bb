// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "device/vector/PageShape.h"

namespace kelplot {

/// Where the parts of an area begin that lie apart, such as the letters of a text: painted one by one, they look as
/// they do together. Just 0 where it has one part, or so many small ones that taking it apart would not pay.
std::vector<size_t> partsOfArea(const PageShape& shape);

} // namespace kelplot
