// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

#include "keldriver/Export.h"
#include "keldriver/Win32Types.h"

/// The colour at an index of the fixed palette, as 0xAARRGGBB.
///
/// Entry k holds colour number k + 1 of the 255-colour scheme of drawing programs: 0 to 8 are red, yellow,
/// green, cyan, blue, magenta, white and two greys, 9 to 248 are 24 hues in ten shades each, 249 to 254
/// greys up to white. Entry 255 is 0, fully transparent; so is any index outside 0 to 255.
KELDRIVER_API uint32_t HT_GetPaletteColors(int32_t index);

/// The index, 0 to 254, of the palette entry that is nearest to a colour; the lowest of several.
///
/// @param color  byte 0 (the least significant) is red, byte 1 is blue and byte 2 is green, in this order; byte 3
///               is not read
KELDRIVER_API int HT_GetNearestIndex(unsigned int color);

/// The number of bytes of a DIB's pixels: the header's image size, or what its rows take where that is 0. A size of
/// more than 32 bits is truncated to its low 32 bits.
KELDRIVER_API uint32_t HT_GetDIBPixelSize(const tagBITMAPINFOHEADER& header);

/// The number of colour entries between a DIB's header and its pixels, bit-field masks included.
KELDRIVER_API int HT_GetDIBColorCount(const tagBITMAPINFOHEADER& header);

/// Reads one pixel of a DIB with 32 bits per pixel.
///
/// @param pixels  rows of |biWidth| pixels (blue, green, red, alpha), |biHeight| of them; borrowed
/// @param x       column, from 0 to the width; the width itself reads as Qt's out-of-range pixel
/// @param y       row in memory, from 0 to the height; the height itself reads as Qt's out-of-range pixel
///                The fifth argument is not read.
/// @param color   receives the colour; its reserved byte tells whether the pixel is visible at all (1 or 0)
/// @return 1, or 0 without an image or for a pixel outside, and then `color` is unchanged
KELDRIVER_API int vndrGetColor(const unsigned char* pixels, const tagBITMAPINFO& info, long x, long y, long,
                               tagRGBQUAD& color);
