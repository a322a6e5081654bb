// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

#include "keldriver/ClipRgn.h"
#include "keldriver/Types.h"

#define VNBASE_API __attribute__((visibility("default")))

extern "C" {

/// Clips an open polyline to a region and rounds the visible pieces to integers.
///
/// The region: each contour holds what the even-odd rule gives it, and the contours are joined in list order by
/// their operations: 0 and, 2 difference, 3 or, 4 exclusive or, 1 replaces what came before; a contour with any
/// other code is left out. The first contour starts the region, whatever its code; if it is a hole (code 2) it changes
/// places with the first one that is not. A contour with fewer than three vertices, without an array or with a vertex
/// that is not finite holds nothing.
///
/// A stretch along an edge counts as inside when one side of it is. A polyline that only touches the region in a
/// point gives no piece there.
///
/// The pieces come in order along the polyline; a piece that leaves the region ends there, even if the next one starts
/// on the same pixel. A piece has two vertices at least, and keeps those that fall on one pixel; only an exact
/// repetition of the vertex before is left out. A polyline whose vertices all coincide inside the region is a piece of
/// two equal vertices. A vertex that is not finite breaks the polyline: the segments on both sides of it are left out.
/// Coordinates are rounded to the nearest integer, halves away from zero, and saturate at the ends of the range.
///
/// @param points       `pointCount` vertices; borrowed. Null, or a count below two: no pieces
/// @param region       the list of contours; borrowed. Null: no pieces
/// @param coordinates  receives x and y of every vertex, piece after piece without gaps
/// @param counts       receives the number of vertices of each piece
/// @return the number of pieces. When it is 0 both outputs are null: nothing is visible, an output address is
///         null, or memory ran out. Otherwise release both with `freeClipPolylineBuffer`
VNBASE_API int clipPolylineByPolygons(const HT_Double_Point* points, int pointCount, const HT_ClipRgn* region,
                                      int32_t** coordinates, int32_t** counts);

/// Releases a buffer of `clipPolylineByPolygons`; null is allowed.
VNBASE_API void freeClipPolylineBuffer(void* buffer);
}
