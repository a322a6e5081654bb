#pragma once

#include <cstdint>

#include "keldriver/Export.h"

/// The colour at an index of the fixed palette, as 0xAARRGGBB.
///
/// Entry k holds colour number k + 1 of the 255-colour scheme of drawing programs: 0 to 8 are red, yellow,
/// green, cyan, blue, magenta, white and two greys, 9 to 248 are 24 hues in ten shades each, 249 to 254
/// greys up to white. Entry 255 is 0, fully transparent; so is any index outside 0 to 255.
KELDRIVER_API uint32_t HT_GetPaletteColors(int32_t index);
