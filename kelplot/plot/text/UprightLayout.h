// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "plot/text/ParagraphLines.h"

namespace kelplot {

/// Lays out a text of paragraphs whose characters stand one below the other, in columns from left to right, about the
/// point that it hangs on. Its width is the length of a column.
void placeUpright(const MText& text, const ParagraphFrame& frame, PlacedText& placed);

} // namespace kelplot
