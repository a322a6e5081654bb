// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Text.h"
#include "plot/text/FontSet.h"
#include "plot/text/TextBlock.h"

namespace kelplot {

/// Lays out a text of paragraphs.
PlacedText layOut(const MText& text, const TextStyle& style, FontSet& fonts);

} // namespace kelplot
