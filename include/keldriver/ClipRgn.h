// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "keldriver/Export.h"
#include "keldriver/Types.h"

/// How a contour of a region joins the result of all contours before it.
enum HT_RgnOp : int32_t {
    HT_RGN_AND = 0,  ///< intersection
    HT_RGN_COPY = 1, ///< replaces what came before
    HT_RGN_DIFF = 2, ///< is subtracted; marks a hole in an evaluated region
    HT_RGN_OR = 3,   ///< union; marks an outer contour in an evaluated region
    HT_RGN_XOR = 4,  ///< exclusive or; every new polygon has it
};

/// One contour of a clip region. A region is the list that starts at its first contour.
///
/// The contour closes itself; its first vertex is not repeated at the end. What it holds follows the even-odd
/// rule. Nodes come from `new` and vertex arrays from `new[]`; no node belongs to two lists. Release a whole
/// list with `KelDriver::HT_DeleteRgn`.
struct HT_ClipRgn {
    int32_t mode;            ///< an `HT_RgnOp` in the low byte; bits 8 to 11 open and bits 12 to 15 close brackets
    HT_ClipRgn* next;        ///< null at the end of the list
    int32_t pointCount;      ///< number of vertices
    HT_Double_Point* points; ///< the vertices in plot units; null: none, whatever the count says
};

static_assert(sizeof(HT_ClipRgn) == 32 && offsetof(HT_ClipRgn, mode) == 0 && offsetof(HT_ClipRgn, next) == 8 &&
                  offsetof(HT_ClipRgn, pointCount) == 16 && offsetof(HT_ClipRgn, points) == 24,
              "record shared with drivers");

/// The Win32 region-combine code for a contour's operation: 1 and, 2 or, 3 xor, 4 difference, 5 copy.
/// Reads the low byte alone; an unknown operation counts as `HT_RGN_AND`.
KELDRIVER_API int HT_RGN_OP_2_CDC_OP(int op);

/// One contour that an `HT_Region` has collected. Record and vertices come from `HT_Malloc`.
struct KELDRIVER_API HT_Contour {
    HT_Double_Point* points; ///< the vertices, owned; null for none
    int32_t count;           ///< number of vertices, as it was given to `AddPoint`
    uint8_t closed;          ///< 1 for a contour that takes no further piece; 0 for one that `EndData` finished
    uint8_t mode;            ///< what `AddPoints` was told about a contour finished at once; else 0

    /// Replaces the contour's vertices by a copy of `n` points; despite its name, it does not append.
    ///
    /// @param pts  may be the contour's own vertices; null leaves it without any
    /// @param n    kept in `count` as it is, also where there are no vertices because `pts` is null or `HT_Malloc`
    ///             fails; a negative one copies nothing
    /// @return 1
    int AddPoint(const HT_Double_Point* pts, int n);
};

static_assert(sizeof(HT_Contour) == 16 && offsetof(HT_Contour, points) == 0 && offsetof(HT_Contour, count) == 8 &&
                  offsetof(HT_Contour, closed) == 12 && offsetof(HT_Contour, mode) == 13,
              "record shared with drivers");

/// Collects contours from pieces. The caller adds pieces, calls `EndData`, reads `contours` and calls `Clear`.
///
/// It has no destructor: what was not cleared is leaked. A copy shares its contours with the original.
struct KELDRIVER_API HT_Region {
    std::vector<HT_Contour*> contours; ///< in the order in which they were finished; owned
    HT_Contour* current = nullptr;     ///< the open contour that pieces chain onto; owned
    HT_Double_Point lastPoint{};       ///< where `current` ends

    /// Adds a piece of `n` points; it needs two at least, and three when it ends where it starts.
    ///
    /// A piece that ends where it starts (within the tolerance), or any with a non-zero `closedFlag`, is a
    /// finished contour at once and leaves the open contour open. Another piece continues the open contour when
    /// it starts exactly, bit for bit, where that ends; otherwise it starts a new one and the old one is
    /// finished. A piece that continues the open contour replaces its vertices by its own but the first.
    ///
    /// @param pts         the points of the piece; null counts as too few
    /// @param n           how many there are
    /// @param closedFlag  non-zero for a piece that is a finished contour
    /// @param mode        kept with a contour that is finished at once
    /// @return 1; 0 when the piece has too few points or a contour cannot be allocated, and then nothing has changed.
    ///         Vertices that cannot be allocated are not noticed
    int AddPoints(const HT_Double_Point* pts, int n, int closedFlag, unsigned char mode);

    /// Moves the open contour, if there is one, to the finished ones as it is.
    void EndData();

    /// Releases the finished contours and ends the use of the builder; call `EndData` first.
    ///
    /// The vertices of a contour that is still open are not released, and `current` keeps its stale value.
    void Clear();
};

static_assert(sizeof(std::vector<HT_Contour*>) == 24 && sizeof(HT_Region) == 48 && offsetof(HT_Region, contours) == 0 &&
                  offsetof(HT_Region, current) == 24 && offsetof(HT_Region, lastPoint) == 32,
              "record shared with drivers");

namespace KelDriver {

using ::HT_RGN_OP_2_CDC_OP;
using ::isEqual;
using ::UnionRectangle;

/// A deep copy of a list, to be released with `HT_DeleteRgn`; null for null.
///
/// Throws `std::bad_array_new_length` for a negative vertex count, and then nothing stays allocated.
KELDRIVER_API HT_ClipRgn* HT_CloneRgnData(const HT_ClipRgn* rgn);

/// The same as `HT_CloneRgnData`.
KELDRIVER_API HT_ClipRgn* HT_CreateRgnFromData(const HT_ClipRgn* rgn);

/// Returns its argument: a region and its data are the same thing here.
KELDRIVER_API HT_ClipRgn* HT_GetClipRgnData(HT_ClipRgn* rgn);

/// Releases a whole list; null is allowed.
///
/// @return 1
KELDRIVER_API int HT_DeleteRgn(HT_ClipRgn* rgn);

/// A region of one contour, `HT_RGN_XOR`, with a copy of `n` points; release it with `HT_DeleteRgn`.
///
/// Null points give a contour without vertices. Throws `std::bad_array_new_length` for a negative `n`.
KELDRIVER_API HT_ClipRgn* HT_CreatePolygonRgnData(const HT_Double_Point* pts, int n);

/// A polygon from two opposite corners, as they are: (a.x, a.y), (b.x, a.y), (b.x, b.y), (a.x, b.y).
KELDRIVER_API HT_ClipRgn* HT_CreateRectRgnData(const HT_Double_Point& a, const HT_Double_Point& b);

/// The bounding box of `n` points; of the first one alone when `n` is negative.
///
/// @return 1, or 0 without any points, and then `rect` is unchanged
KELDRIVER_API int HT_GetPointsRect(const HT_Double_Point* pts, int n, HT_Double_Rectangle* rect);

/// Tells whether four points count as the corners, in order, of an axis-parallel rectangle: the first and
/// third are opposite corners of the points' box, within 1e-10, and so are the second and fourth. One without width or
/// height passes, and so does a slanted stroke there and back.
///
/// @param rect  receives the bounding box of the points, whatever the answer; may be null
KELDRIVER_API bool IsRect(HT_Double_Point* pts, HT_Double_Rectangle* rect);

/// `IsRect` for a region of one contour of four points; false for any other, and then `rect` is unchanged.
KELDRIVER_API bool HT_GetRgnMinRect(const HT_ClipRgn* rgn, HT_Double_Rectangle* rect);

} // namespace KelDriver
