// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <vector>

#include "Frame.h"
#include "PieceWriter.h"
#include "RegionIndex.h"

namespace vnbase {

/// Clips polylines to a region: cuts each segment at the region's edges and keeps the parts whose middle is inside.
class PolylineClipper {
public:
    PolylineClipper(const Frame& frame, RegionIndex& index);

    /// Clips a polyline of finite vertices.
    void clip(const HT_Double_Point* begin, const HT_Double_Point* end);
    Pieces takePieces() { return m_writer.takePieces(); }

private:
    void clipDot(const HT_Double_Point& p);
    void clipSegment(const HT_Double_Point& from, const HT_Double_Point& to);
    /// Collects the cuts of the part of a segment that can meet the region, its ends included, in order; nothing
    /// when there is no such part.
    void collectCuts(const Vec& from, const Vec& to);
    /// Writes what is inside between the cuts.
    ///
    /// @param a, b      the ends from which and to which the cuts are measured, in the frame
    /// @param from, to  the same in plot units
    /// @param end       where the segment ends: 1, or 0 when it is measured backwards
    void keepInside(const Vec& a, const Vec& b, const HT_Double_Point& from, const HT_Double_Point& to, double end);

    const Frame& m_frame;
    RegionIndex& m_index;
    Box m_near; ///< the region with some room around it
    PieceWriter m_writer;
    std::vector<Cut> m_cuts; ///< of the current segment
};

/// The visible pieces of a polyline; vertices that are not finite break it.
Pieces visiblePieces(const HT_Double_Point* points, size_t count, const HT_ClipRgn* region);

} // namespace vnbase
