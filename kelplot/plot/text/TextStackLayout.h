// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "plot/text/TextLine.h"

namespace kelplot {

/// A stack laid out: it starts at the origin, its lower text on the base line.
struct SetStack {
    TextLine line;
    double height = 0.0; ///< from the base line to the top of the upper text
};

SetStack setStack(const TextStack& stack, const TextLook& look, FontSet& fonts);

} // namespace kelplot
