// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <vector>

#include <clipper.hpp>

#include "Junction.h"
#include "SharedPoints.h"

namespace tarsel {

/// The vertices of all contours of a result, each linked to the one before and the one after it.
///
/// The inside of a result lies to the left of every link. Where contours merely touch, themselves or one another, they
/// may swap the edges by which they leave the common vertex, so a chain can be relinked there without changing the
/// area.
class Chains {
public:
    explicit Chains(const ClipperLib::Paths& paths);

    const std::vector<ClipperLib::IntPoint>& points() const { return m_points; }

    /// Links the chains at common vertices so that none crosses another or itself there.
    ///
    /// @return the points around which incoming and outgoing edges do not alternate: an edge passes there without a
    /// vertex
    ClipperLib::Path uncross(const std::vector<SharedPoint>& shared);

    /// Gives edges a vertex wherever they pass one of the points.
    ///
    /// @return whether there was such an edge
    bool splitEdgesAt(ClipperLib::Path points);

    /// The chains as contours, cut apart wherever they come back to a vertex.
    ClipperLib::Paths loops(const std::vector<SharedPoint>& shared) const;

private:
    struct Split;

    bool uncross(const std::vector<VertexIndex>& vertices, Junction& junction);
    void insertAfter(VertexIndex vertex, const ClipperLib::IntPoint& point);

    std::vector<ClipperLib::IntPoint> m_points;
    std::vector<VertexIndex> m_next;
    std::vector<VertexIndex> m_previous;
    std::vector<VertexIndex> m_oldNext; // while vertices are relinked
};

} // namespace tarsel
