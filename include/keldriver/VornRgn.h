// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "keldriver/ClipRgn.h"
#include "keldriver/Export.h"
#include "keldriver/Types.h"

struct gpc_polygon; // defined in gpc.h, which is installed too

/// A region that a driver holds: a list of contours with its bounding box and its kind.
///
/// Coordinates are plot units. Regions are reported in the Win32 way: 1 empty, 2 a rectangle, 3 any other.
/// The fields may be read; change them through the operations only.
///
/// Memory that runs out is reported by `std::bad_alloc`, from every operation that makes or copies contours, except
/// inside the polygon clipper: there an operand loses contours, with a message on standard error, or the result counts
/// as empty.
class KELDRIVER_API CVornRgn {
public:
    /// No region: kind 0, reported as empty.
    CVornRgn();

    /// Evaluates a copy of a list of contours as `KelDriver::HT_StandardClipRgn` does: kind 1 where that answers true,
    /// else 2, also when nothing is left. A list whose first contour has no points is copied but not evaluated, and
    /// the box is zero then. Null gives an empty region, kind 3.
    ///
    /// Throws `std::bad_array_new_length` for a negative vertex count.
    explicit CVornRgn(const HT_ClipRgn* rgn);

    /// A deep copy.
    CVornRgn(const CVornRgn& src);

    /// `CopyFrom` as an assignment.
    CVornRgn& operator=(const CVornRgn& src);

    /// Releases the contours.
    virtual ~CVornRgn();

    /// Makes this a deep copy: contours, kind and box. A copy of itself changes nothing.
    ///
    /// @return 1
    int CopyFrom(const CVornRgn& src);

    /// Releases the contours: kind 0 and a zero box.
    ///
    /// @return 1
    int DeleteObject();

    /// Makes this the rectangle of two opposite corners in any order, kind 1; it holds no contours until they are
    /// asked for.
    ///
    /// @return 1
    int CreateRectRgn(double x1, double y1, double x2, double y2);

    /// Makes this a region of one contour, `HT_RGN_XOR`, with a copy of `n` points: kind 1 where `KelDriver::IsRect`
    /// takes them for a rectangle, else 2. The box is theirs; without points it is zero.
    ///
    /// Throws `std::bad_array_new_length` for a negative `n`, and then the region is unchanged.
    ///
    /// @param pts       may be this region's own; null gives a contour without points
    /// @param n         how many there are
    /// @param fillMode  not read: every contour follows the even-odd rule
    /// @return 1
    int CreatePolygonRgn(const HT_Double_Point* pts, int n, int fillMode);

    /// A list of one contour, `HT_RGN_XOR`, with the four corners of a rectangle; release it with
    /// `KelDriver::HT_DeleteRgn`.
    static HT_ClipRgn* CreateRectClipRgn(const HT_Double_Rectangle& r);

    /// The bounding box as it is stored, whatever the kind.
    ///
    /// @param r  receives the box; may be null
    /// @return 1 empty, 2 a rectangle, 3 any other region
    int GetRgnBox(HT_Double_Rectangle* r) const;

    /// The contours, which stay the region's own. A region of kind 1 or 2 that has none gets the four corners of its
    /// box, an empty region a rectangle without extent at the origin; null when there is no region.
    HT_ClipRgn* GetClipRgnRef();

    /// Does nothing.
    ///
    /// @return 1
    static int Divided(HT_ClipRgn** rgn);

    /// Makes this the combination of `a` and `b`; this may be one of them, or both.
    ///
    /// The result is evaluated as by `KelDriver::HT_StandardClipRgn`, which sets kind and box; with nothing left this
    /// is empty, kind 3. An operand that is the result by itself, as when the other one is empty, is copied. A region
    /// of kind 0 is not empty here: it is combined like any other, as the box that it has, at first one without extent
    /// at the origin. To gather regions into one, start with a copy of the first.
    ///
    /// An operand without contours may get those of its box. Where the boxes of `a` and `b` do not overlap, the union
    /// and the exclusive or append a copy of b's contours, the first of them as `HT_RGN_OR`, to those of `a` itself,
    /// which keeps its box; and this, unless it is `a`, becomes a region of kind 2 with the common box and no contours
    /// of its own.
    ///
    /// @param a   first operand; null counts as an empty region
    /// @param b   second operand; null counts as an empty region
    /// @param op  Win32 code: 1 and, 2 or, 3 xor, 4 difference a - b, 5 copy of b; any other changes nothing
    /// @return kind of this as `GetRgnBox` reports it
    int CombineRgn(CVornRgn* a, CVornRgn* b, int op);

    /// Evaluates this region's contours as an expression with brackets.
    ///
    /// Starting from an empty region, the low byte of a contour's mode joins it to what came before, as `CombineRgn`
    /// does with the code that `HT_RGN_OP_2_CDC_OP` gives. Bits 8 to 11, as they stand, less bits 12 to 15, as they
    /// stand, are the number of brackets that a contour opens; one step of the former is 256 brackets, one of the
    /// latter 4096. Where it is positive, what came before is set aside, and the contour begins the contents of the
    /// brackets, which are joined by its low byte when the outermost of them is closed. Where it is negative, that many
    /// brackets are closed and the contour's points are not used.
    ///
    /// What was set aside for brackets that are never closed is lost. When more brackets are closed than are open, the
    /// region stays as it was.
    void StandardRgn();

    int32_t m_nType = 0;              ///< 0 no region, 1 a rectangle, 2 any other region, 3 an empty region
    HT_Double_Rectangle m_rcBox{};    ///< bounding box
    HT_ClipRgn* m_pClipRgn = nullptr; ///< owned; null when the box alone describes the region
};

static_assert(sizeof(CVornRgn) == 56, "record shared with drivers");

/// Conversions between region lists and the polygon clipper's records, and the evaluation of a list.
///
/// The clipper's records come from `malloc` and their arrays from `tarsel_malloc`; release them with
/// `gpc_free_polygon` and then `free`. Where an array cannot be allocated a message goes to standard error and
/// the contour has no vertices.
class KELDRIVER_API PolyAlgoOperator {
public:
    /// A polygon of all contours of a list; those after the first are holes when their mode is `HT_RGN_DIFF`. Null
    /// gives one without contours.
    static gpc_polygon* convert_2_gpc_polygon(HT_ClipRgn* rgn);

    /// A polygon of the given node's contour alone, as an outer one. Null gives one without contours.
    static gpc_polygon* convert_2_gpc_polygon_simple(HT_ClipRgn* rgn);

    /// A new list with modes `HT_RGN_DIFF` for holes and `HT_RGN_OR` for outer contours; null without contours.
    static HT_ClipRgn* convert_2_Clip_Rgn(gpc_polygon* polygon);

    /// Joins the contours of a list by their modes, in place.
    ///
    /// `OrderBorder` comes first. Then every later contour, from left to right, is joined to the whole result so far by
    /// one call of the clipper. `HT_RGN_COPY` replaces the result without one; a mode with bracket bits, or one that is
    /// unknown, leaves its contour out.
    ///
    /// The result has outer contours, `HT_RGN_OR`, and holes, `HT_RGN_DIFF`, in the order in which the clipper gives
    /// them, but with an outer one first; a contour that the clipper never saw is as it was given. The first node stays
    /// where it is; with nothing left it is the only one and has no points. A list of one node is left as it is.
    ///
    /// @return its argument
    static HT_ClipRgn* ClipRgnOperator(HT_ClipRgn* rgn);
};

/// Exchanges the contents of the first node, if its mode is `HT_RGN_DIFF`, with those of the first node of another
/// mode; without one, and for null, nothing happens.
KELDRIVER_API void OrderBorder(HT_ClipRgn* rgn);

namespace KelDriver {

/// Evaluates a region of several contours in place and fills its bounding box.
///
/// A region of one contour is not changed; one of several is evaluated by `PolyAlgoOperator::ClipRgnOperator`.
///
/// @param rgn   the list; may be null
/// @param rect  receives the box; unchanged when the first contour has no points, or nothing is left; may be null
/// @return whether the region is a single contour of four points that `IsRect` takes for a rectangle; false for null
KELDRIVER_API bool HT_StandardClipRgn(HT_ClipRgn* rgn, HT_Double_Rectangle* rect);

} // namespace KelDriver
