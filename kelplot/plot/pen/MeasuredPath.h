// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "geometry/Box2.h"
#include "plot/pen/DashLayout.h"

namespace kelplot {

/// A polyline with the distances along it.
class MeasuredPath {
public:
    /// @param points  at least one, all finite; outlive this
    explicit MeasuredPath(const std::vector<Vec2>& points);

    double length() const { return m_distances.back(); }
    double distanceOf(size_t point) const { return m_distances[point]; }
    Vec2 pointAt(double distance) const;
    /// The way on from a place; of length 1 where the path has a length.
    Vec2 directionAt(double distance) const;
    /// The points of a part of the path.
    std::vector<Vec2> part(const LineSpan& span) const;
    /// The shortest part of the path that holds all of it that lies in a box; nothing where none does.
    std::optional<LineSpan> partIn(const Box2& box) const;

private:
    size_t legAt(double distance) const;

    const std::vector<Vec2>& m_points;
    std::vector<double> m_distances; ///< of each point
};

} // namespace kelplot
