// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Text.h"
#include "plot/text/FontSet.h"
#include "plot/text/TextBlock.h"

namespace kelplot {

/// Lays out a single line of text.
PlacedText layOut(const Text& text, const TextStyle& style, FontSet& fonts);

} // namespace kelplot
