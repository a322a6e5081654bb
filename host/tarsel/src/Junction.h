// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <vector>

#include <clipper.hpp>

#include "SharedPoints.h"

namespace tarsel {

/// The edges that meet at a point. One object serves for many points, one after another.
class Junction {
public:
    /// Forgets the edges of the point before.
    void moveTo(const ClipperLib::IntPoint& point);

    /// Adds the way of a contour through the point.
    void add(VertexIndex vertex, const ClipperLib::IntPoint& from, const ClipperLib::IntPoint& to);

    /// The vertex of a way in, and the vertex whose way out follows it on the boundary.
    struct Turn {
        VertexIndex in;
        VertexIndex out;
    };

    /// How the edges through the point must continue so that no path crosses another.
    ///
    /// An incoming edge turns back into an outgoing one of the same direction; with nothing between them, neither
    /// bounds anything. Any other continues with the next outgoing edge around the point, keeping the inside of the
    /// result to its left.
    /// @return null when incoming and outgoing edges do not alternate around the point
    const std::vector<Turn>* turns();

private:
    struct End {
        VertexIndex vertex;
        bool out;
        ClipperLib::IntPoint direction;
    };

    static bool isBefore(const End& a, const End& b);
    void takeTurnsBack();

    ClipperLib::IntPoint m_point;
    std::vector<End> m_ends;
    std::vector<Turn> m_turns;
};

} // namespace tarsel
