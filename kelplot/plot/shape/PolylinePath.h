// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "drawing/Entity.h"
#include "geometry/EllipticArc.h"

namespace kelplot {

/// A piece of a polyline between two vertices, in the polyline's own coordinates.
struct PolylineSegment {
    PolylineVertex from;
    PolylineVertex to;

    bool isWide() const { return from.startWidth > 0.0 || from.endWidth > 0.0; }
    Vec2 start() const { return {from.position.x, from.position.y}; }
    Vec2 end() const { return {to.position.x, to.position.y}; }
    /// The arc from `start` to `end`; nothing for a straight piece.
    std::optional<EllipticArc> arc() const;
};

/// The pieces of a polyline. Vertices that are not finite, and pieces of no length, are left out.
std::vector<PolylineSegment> segmentsOf(const std::vector<PolylineVertex>& vertices, bool closed);

/// Appends the points of a piece as seen through `map`, without its first one unless `out` is empty. The tolerance
/// applies to the outer border of the piece, as if it were as wide throughout as at its start.
void flattenSegment(const PolylineSegment& segment, const PlanMap& map, const Flattening& rules,
                    std::vector<Vec2>& out);

/// The width that all pieces share, or nothing when it varies.
std::optional<double> commonWidth(const std::vector<PolylineSegment>& segments);

/// The outlines of the wide pieces, with mitred corners where pieces of one width meet, and of patches over the
/// seams between them.
///
/// @param overlap  how far a patch reaches to both sides of its seam, after `map`; 0 for no patches
std::vector<std::vector<Vec2>> wideOutlines(const std::vector<PolylineSegment>& segments, bool closed,
                                            const PlanMap& map, const Flattening& rules, double overlap);

} // namespace kelplot
