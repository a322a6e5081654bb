// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <vector>

#include "Buckets.h"
#include "Cells.h"
#include "Edge.h"
#include "RegionContours.h"

namespace vnbase {

/// Strips across a region, into which its edges are sorted.
struct Strips {
    size_t count;
    bool upright; ///< one beside another, instead of one above another
};

/// Answers whether points are in a region, each from the edges in its strip alone.
///
/// A point gets the wrong answer only where rounding cannot tell on which side of an edge it is.
class Membership {
public:
    /// @param edges     in the order of their contours; must outlive this object
    /// @param contours  the joins; empty contours count
    /// @param reach     where the region is
    /// @param strips    to sort the edges into; an edge should be in few of them
    Membership(const std::vector<Edge>& edges, const std::vector<Contour>& contours, const Box& reach,
               const Strips& strips);

    bool holds(const Vec& p) const;

private:
    /// A point in coordinates where the strips lie one above another; x and y are exchanged when they do not.
    Vec turned(const Vec& p) const { return m_exchanged ? Vec{p.y, p.x} : p; }
    /// The state before `contour`, if no contour from `next` up to it holds the point.
    bool withoutContours(bool state, size_t next, size_t contour) const;

    const std::vector<Edge>& m_edges;
    Box m_reach;
    bool m_exchanged;
    Cells m_rows;
    Buckets m_rowEdges;
    std::vector<Join> m_joins;
    std::vector<size_t> m_clearedAfter; ///< 1 + the last contour before this one that clears points outside it; or 0
};

} // namespace vnbase
