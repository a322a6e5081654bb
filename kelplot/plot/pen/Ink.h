// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QColor>

#include "drawing/Entity.h"
#include "keldriver/Types.h"
#include "settings/PenTable.h"

namespace kelplot {

/// The colour of the paper, for areas that cover what lies below them.
constexpr HT_Color paperInk = 0xFFFFFF;

/// An ink as painters take it, opaque unless told otherwise.
QColor colourOf(HT_Color ink, uint8_t opacity = opaque);

enum class InkUse { line, fill };

/// The ink for a colour on paper, which is white.
///
/// White lines would not show and come out black. Areas of explicit white stay white: drawings use them to
/// cover what lies below, on a monochrome plot and with any pen too. Colour number 7 means "the opposite of the
/// ground", so it is black even for areas. Any other ink of the pen table is used as it is.
HT_Color inkFor(const Colour& colour, InkUse use, const PenRule& rule, bool monochrome);

} // namespace kelplot
