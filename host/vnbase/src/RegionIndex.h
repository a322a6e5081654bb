// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <vector>

#include "Buckets.h"
#include "Cells.h"
#include "Edge.h"
#include "Frame.h"
#include "Membership.h"
#include "RegionContours.h"

namespace vnbase {

/// A place where a segment may change sides of the region.
struct Cut {
    double t;         ///< 0 at the start of the segment, 1 at its end
    const Edge* edge; ///< the edge that is there; null at an end of the segment
};

/// The edges of a region, sorted into cells, for clipping many segments. All coordinates are of the frame.
class RegionIndex {
public:
    /// @param contours     with an edge at least
    /// @param frame        of the contours' reach; must outlive this object
    /// @param segmentCount how many segments will be asked about; a few are not worth many cells
    RegionIndex(const std::vector<Contour>& contours, const Frame& frame, size_t segmentCount);
    RegionIndex(const RegionIndex&) = delete;
    RegionIndex& operator=(const RegionIndex&) = delete;

    /// Adds every place where a segment of some length crosses or touches an edge, or leaves one that it follows;
    /// in no order, some twice, and some where nothing changes.
    void appendCuts(const Vec& from, const Vec& to, std::vector<Cut>& cuts);
    /// Whether a point is inside or, within the tolerance, on an edge with the inside on one side.
    bool holds(const Vec& p);
    /// Whether both points are in one cell that no edge comes close to, so that nothing changes between them.
    bool isUndivided(const Vec& a, const Vec& b) const;

private:
    enum class State : unsigned char { Unknown, Outside, Inside };

    static std::vector<Edge> edgesOf(const std::vector<Contour>& contours, const Frame& frame);
    static Cells cellsFor(const std::vector<Edge>& edges, const Frame& frame, size_t segmentCount);
    static Strips stripsFor(const std::vector<Edge>& edges, const Frame& frame, size_t segmentCount);
    bool isBeside(const Edge& edge, const Vec& p) const;
    bool touches(const Edge& edge, const Vec& p) const;

    double m_tolerance;
    std::vector<Edge> m_edges;
    Membership m_membership;
    Cells m_cells;
    Buckets m_cellEdges;
    std::vector<State> m_states;   ///< of the cells without edges
    std::vector<uint32_t> m_asked; ///< by edge: the last segment that met it
    uint32_t m_segment = 0;
};

} // namespace vnbase
