// SPDX-License-Identifier: BSD-3-Clause
#ifndef GPC_H
#define GPC_H

/// The polygon clipper of libTarsel.so: two sets of contours in, their Boolean combination out.
///
/// Every polygon is a set of closed contours under the even-odd rule: a point belongs to it when it lies inside
/// an odd number of its contours. Contours may cross themselves and one another.

// C callers include this header too: NOLINTBEGIN(modernize-deprecated-headers, modernize-use-using)
#include <stddef.h>

#if defined(__GNUC__)
#define TARSEL_API __attribute__((visibility("default")))
#else
#define TARSEL_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// How the clip polygon changes the subject polygon.
typedef enum gpc_op {
    GPC_DIFF = 0, ///< what the clip polygon holds is taken out
    GPC_INT = 1,  ///< what both hold stays
    GPC_XOR = 2,  ///< what one of them alone holds stays
    GPC_UNION = 3 ///< what either holds stays
} gpc_op;

/// A point of a contour.
typedef struct gpc_vertex {
    double x; ///< horizontal coordinate
    double y; ///< vertical coordinate, whether upwards or downwards
} gpc_vertex;

/// One contour; the edge from its last vertex to its first is implied.
typedef struct gpc_vertex_list {
    int num_vertices;   ///< how many vertices there are
    gpc_vertex* vertex; ///< the vertices in order
} gpc_vertex_list;

/// A set of contours.
typedef struct gpc_polygon {
    int num_contours;         ///< how many contours there are
    int* hole;                ///< one flag a contour, 1 for a hole; an operand's flags are not read and may be missing
    gpc_vertex_list* contour; ///< the contours
} gpc_polygon;

/// Stores `subject_polygon` op `clip_polygon` in `result_polygon`.
///
/// Operand coordinates that survive come back bit for bit (negative zero as zero), each axis independently;
/// crossings are rounded to a grid of about 2^-50 of the operands' common extent. Values that fall on the same grid
/// line all become the smallest of them.
///
/// The larger contours of the result come before the smaller ones and outer contours before the holes in them, so that
/// uniting the outer contours and subtracting the holes in their order gives the same area as the even-odd rule. The
/// order can fail only where many edges of the operands run along one another, closer than the grid resolves. Nothing
/// else about the order is promised: not that of contours of equal size, nor the vertex with which a contour starts,
/// nor the way it turns. No contour passes a vertex twice, except where rounding makes it unavoidable.
///
/// A contour of an operand counts as absent when it has fewer than three vertices, no array, or a vertex that
/// is not finite; a null operand has no contours.
///
/// @param op               the operation; any other value leaves nothing
/// @param subject_polygon  the first operand; not changed
/// @param clip_polygon     the second operand; not changed, and may be the first
/// @param result_polygon   overwritten without releasing what it held, and may be one of the operands; release with
///                         `gpc_free_polygon`. No contours and null arrays when nothing is left, when `op` is none of
///                         the four, or when memory runs out. Null: nothing happens
TARSEL_API void gpc_polygon_clip(gpc_op op, gpc_polygon* subject_polygon, gpc_polygon* clip_polygon,
                                 gpc_polygon* result_polygon);

/// Releases the arrays of a polygon, not the record itself, and leaves it with no contours and null arrays.
TARSEL_API void gpc_free_polygon(gpc_polygon* polygon);

/// Allocates an array that `gpc_free_polygon` may release; null when memory runs out.
TARSEL_API void* tarsel_malloc(size_t size);

#ifdef __cplusplus
}

static_assert(sizeof(gpc_vertex) == 16 && offsetof(gpc_vertex, y) == 8 && sizeof(gpc_vertex_list) == 16 &&
                  offsetof(gpc_vertex_list, vertex) == 8 && sizeof(gpc_polygon) == 24 &&
                  offsetof(gpc_polygon, hole) == 8 && offsetof(gpc_polygon, contour) == 16,
              "records shared with applications' own clippers");
#endif
// NOLINTEND(modernize-deprecated-headers, modernize-use-using)

#endif
