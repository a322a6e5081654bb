#pragma once

#include "drawing/Entity.h"
#include "keldriver/Types.h"

namespace kelplot {

enum class InkUse { line, fill };

/// The ink for a colour on paper, which is white.
///
/// White lines would not show and come out black. Areas of explicit white stay white: drawings use them to
/// cover what lies below, on a monochrome plot too. Colour number 7 means "the opposite of the ground", so
/// it is black even for areas.
HT_Color inkFor(const Colour& colour, InkUse use, bool monochrome);

} // namespace kelplot
