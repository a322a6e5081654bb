// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

#include "keldriver/ClipRgn.h"
#include "keldriver/Export.h"
#include "keldriver/PointerArray.h"
#include "keldriver/Types.h"

/// Clips an open polyline to a region and inserts the visible pieces into `out`.
///
/// The application's geometry module does the work and rounds the vertices to integers. The library looks for it,
/// as "vnbase.so", once when it is loaded; later it is not tried again.
///
/// A piece is one block of 4 + 16·count bytes: the number of vertices as a 32-bit integer, then each vertex as
/// two doubles, x and y, which are therefore not aligned: copy them out. A piece for which there was no memory is
/// inserted as null. A count that the module gives as negative is handed on, without vertices.
///
/// @param rgn  the region; borrowed
/// @param pts  `n` vertices; borrowed
/// @param out  not cleared first: piece i goes to position i, before what was there. The caller releases each
///             piece with `HT_Free`
/// @return the number of pieces; 0 when there is no geometry module, a negative number when the module fails, and
///         then `out` is unchanged
KELDRIVER_API int32_t HT_ClipLine(const HT_ClipRgn* rgn, const HT_Double_Point* pts, int n, I_HT_PointerArray* out);
