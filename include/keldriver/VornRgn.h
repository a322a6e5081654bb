// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "keldriver/ClipRgn.h"
#include "keldriver/Export.h"
#include "keldriver/Types.h"

struct gpc_polygon; // defined in gpc.h, which is installed too

/// A region that a driver holds: a list of contours with its bounding box and its kind.
///
/// Coordinates are plot units. Regions are reported in the Win32 way: 1 empty, 2 a rectangle, 3 any other.
/// The fields are laid out for drivers that read them; change them through the operations only.
class KELDRIVER_API CVornRgn {
public:
    /// No region: kind 0, reported as empty.
    CVornRgn();
    /// Evaluates a copy of a list of contours; null, or one with nothing left, gives an empty region.
    explicit CVornRgn(const HT_ClipRgn* rgn);
    CVornRgn(const CVornRgn& src);
    CVornRgn& operator=(const CVornRgn& src);
    virtual ~CVornRgn();

    /// Makes this a deep copy; a copy of itself changes nothing.
    ///
    /// @return 1
    int CopyFrom(const CVornRgn& src);

    /// Releases the contours: kind 0 and a zero box.
    ///
    /// @return 1
    int DeleteObject();

    /// A rectangle from two opposite corners in any order; it holds no contours until they are asked for.
    ///
    /// @return 1
    int CreateRectRgn(double x1, double y1, double x2, double y2);

    /// A region of one contour with a copy of `n` points; what it holds follows the even-odd rule.
    ///
    /// @param fillMode  not read: every contour follows the even-odd rule
    /// @return 1
    int CreatePolygonRgn(const HT_Double_Point* pts, int n, int fillMode);

    /// A list of one contour with the four corners of a rectangle; release it with `KelDriver::HT_DeleteRgn`.
    static HT_ClipRgn* CreateRectClipRgn(const HT_Double_Rectangle& r);

    /// The bounding box, zero for an empty region.
    ///
    /// @return 1 empty, 2 a rectangle, 3 any other region
    int GetRgnBox(HT_Double_Rectangle* r) const;

    /// The contours, which stay the region's own. A rectangle gets its four corners at the first call, an empty
    /// region a rectangle without extent at the origin; null when there is no region.
    HT_ClipRgn* GetClipRgnRef();

    /// Kept for drivers that call it; does nothing.
    ///
    /// @return 1
    static int Divided(HT_ClipRgn** rgn);

    /// Makes this the combination of `a` and `b`; this may be one of them, or both.
    ///
    /// An operand without contours may get those of its box. Where the boxes of `a` and `b` do not overlap, the
    /// union and the exclusive or append a copy of b's contours to those of `a` itself, and this, unless it is
    /// `a`, gets the common box without contours of its own: drivers collect contours in `a` that way.
    ///
    /// @param a, b  null counts as an empty region
    /// @param op    Win32 code: 1 and, 2 or, 3 xor, 4 difference a - b, 5 copy of b; any other changes nothing
    /// @return kind of this as `GetRgnBox` reports it
    int CombineRgn(CVornRgn* a, CVornRgn* b, int op);

    /// Evaluates this region's contours as an expression with brackets.
    ///
    /// The low byte of a contour's mode joins it to what came before. Bits 8 to 11 open as many brackets as
    /// their unshifted value says (one bit pattern step is 256 brackets) before the contour; bits 12 to 15 close
    /// brackets likewise, and the contour's own points are not used then. When more brackets are closed than
    /// were opened the region stays as it was.
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
    /// All contours of a list; those behind the first are holes when their mode is `HT_RGN_DIFF`.
    static gpc_polygon* convert_2_gpc_polygon(HT_ClipRgn* rgn);

    /// The contour of the given node alone, as an outer one.
    static gpc_polygon* convert_2_gpc_polygon_simple(HT_ClipRgn* rgn);

    /// A new list with modes `HT_RGN_DIFF` for holes and `HT_RGN_OR` for outer contours; null without contours.
    static HT_ClipRgn* convert_2_Clip_Rgn(gpc_polygon* polygon);

    /// Joins the contours of a list by their modes, in place.
    ///
    /// Contours with bracket bits or an unknown mode are skipped. The first node stays where it is and becomes
    /// an outer contour; with nothing left it is the only one and has no points. A list of one node is left as
    /// it is.
    ///
    /// @return its argument
    static HT_ClipRgn* ClipRgnOperator(HT_ClipRgn* rgn);
};

/// Exchanges the contents of the first node, if it is a hole, with those of the first node that is none.
KELDRIVER_API void OrderBorder(HT_ClipRgn* rgn);

namespace KelDriver {

/// Evaluates a region of several contours in place and fills its bounding box.
///
/// @param rect  unchanged when the first contour has no points, or nothing is left; may be null
/// @return whether the region is a single axis-parallel rectangle of four points; false for null
KELDRIVER_API bool HT_StandardClipRgn(HT_ClipRgn* rgn, HT_Double_Rectangle* rect);

} // namespace KelDriver
