// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <vector>

#include "Buckets.h"
#include "Cells.h"
#include "Contours.h"
#include "Edge.h"

namespace vnbase {

/// Answers whether points are in a region, each from the edges at its height alone.
///
/// A point gets the wrong answer only where rounding cannot tell on which side of an edge it is.
class Membership {
public:
    /// @param edges     in the order of their contours; must outlive this object
    /// @param contours  the joins; empty contours count
    /// @param reach     where the region is
    /// @param rows      how many strips to sort the edges into
    Membership(const std::vector<Edge>& edges, const std::vector<Contour>& contours, const Box& reach, size_t rows);

    bool holds(const Vec& p) const;

private:
    /// The state before `contour`, when those from `next` on before it do not hold the point.
    bool withoutContours(bool state, size_t next, size_t contour) const;

    const std::vector<Edge>& m_edges;
    Box m_reach;
    Cells m_rows;
    Buckets m_rowEdges;
    std::vector<Join> m_joins;
    std::vector<size_t> m_clearedAfter; ///< 1 + the last contour before this one that leaves no point out of it; or 0
};

} // namespace vnbase
