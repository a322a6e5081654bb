// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Drawing.h"

namespace kelplot {

/// Makes the model space of another drawing the content of a block. All that it names gets the name of the block and a
/// bar in front: layers, line types, text styles, blocks. Layer "0" stays itself. A layer that the drawing lists
/// already under such a name keeps the state that it has there.
void mergeAsBlock(Drawing&& from, uint32_t block, Drawing& into);

} // namespace kelplot
