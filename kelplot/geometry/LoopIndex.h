// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "geometry/BoxTree.h"

namespace kelplot {

/// One closed boundary of an area.
struct AreaLoop {
    std::vector<Vec2> points; ///< whole numbers, so that touching loops are told exactly
    bool alwaysHole = false;  ///< cuts a hole where there is area, and never adds any
};

/// A place on an edge of a loop. The edge goes from the point of its number to the next one.
struct LoopPlace {
    size_t loop = 0;
    size_t edge = 0;
    Vec2 point;
};

/// Closed loops with at least one point each, arranged so that they and their edges are found by place.
class LoopIndex {
public:
    /// @param loops  outlive this
    explicit LoopIndex(const std::vector<AreaLoop>& loops);

    const Box2& box(size_t loop) const { return m_loops[loop].box; }
    /// The number of the first of the loop's leftmost points.
    size_t leftmost(size_t loop) const { return m_loops[loop].leftmost; }
    Vec2 leftmostPoint(size_t loop) const { return (*m_loops[loop].points)[leftmost(loop)]; }
    /// A point that lies in the loop and on no edge of it, nor level with a point of any loop; the leftmost point of a
    /// loop without an inside.
    Vec2 innerPoint(size_t loop) const;

    /// Tells whether `p` lies in a loop by the even-odd rule. Of a border that runs upwards or downwards, the one
    /// on the left of the area belongs to it and the one on the right does not.
    bool surrounds(size_t loop, Vec2 p) const;
    /// Tells whether edges of the loops share a point.
    bool touch(size_t first, size_t second) const;
    /// The nearest place to the left of `p`, or at it, on a loop for whose number `accept` gives true.
    template <typename Accept>
    std::optional<LoopPlace> nearestToTheLeft(Vec2 p, Accept&& accept) const;
    /// Calls `take` with the number of each loop whose box meets `wanted`; touching counts.
    template <typename Take>
    void search(const Box2& wanted, Take&& take) const {
        m_tree.search(wanted, std::forward<Take>(take));
    }

private:
    struct Loop {
        const std::vector<Vec2>* points;
        Box2 box;
        size_t leftmost;
        BoxTree edges;
    };
    struct Segment {
        Vec2 a;
        Vec2 b;
    };

    static Loop arranged(const std::vector<Vec2>& points);
    static Box2 rayToTheLeft(Vec2 p) { return {{-std::numeric_limits<double>::infinity(), p.y}, p}; }
    /// Where an edge passes the height of `p`, if that is to the left of `p` or at it.
    static std::optional<double> passesLeft(const Segment& edge, Vec2 p);
    static bool meet(const Segment& first, const Segment& second);
    Segment edge(size_t loop, size_t number) const;

    std::vector<Loop> m_loops;
    BoxTree m_tree;
};

template <typename Accept>
std::optional<LoopPlace> LoopIndex::nearestToTheLeft(Vec2 p, Accept&& accept) const {
    std::optional<LoopPlace> nearest;
    Box2 ray = rayToTheLeft(p);
    m_tree.search(ray, [&](size_t loop) {
        if (!accept(loop)) {
            return;
        }
        m_loops[loop].edges.search(ray, [&](size_t number) {
            const std::optional<double> x = passesLeft(edge(loop, number), p);
            if (x && *x > ray.min.x) {
                ray.min.x = *x;
                nearest = {loop, number, {*x, p.y}};
            }
        });
    });
    return nearest;
}

} // namespace kelplot
