// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/EvenOddJoin.h"

#include <map>
#include <numeric>

namespace kelplot {

namespace {

/// A loop that is entered from a place on another loop, at its leftmost point.
struct Bridge {
    Vec2 at;
    size_t toLoop = 0;
};

struct Node {
    bool dropped = false;
    bool bridged = false;                  ///< entered from another loop
    std::multimap<size_t, Bridge> bridges; ///< by the edge from which they leave
};

/// The bridges that leave an edge from `start` on, in the order in which they are met along it.
std::vector<Bridge> bridgesOnEdge(const Node& node, size_t edge, Vec2 start) {
    std::vector<Bridge> bridges;
    const auto range = node.bridges.equal_range(edge);
    for (auto it = range.first; it != range.second; ++it) {
        bridges.push_back(it->second);
    }
    std::sort(bridges.begin(), bridges.end(),
              [start](const Bridge& a, const Bridge& b) { return (a.at - start).length() < (b.at - start).length(); });
    return bridges;
}

class LoopJoiner {
public:
    explicit LoopJoiner(const std::vector<AreaLoop>& loops);
    std::vector<std::vector<Vec2>> run();

private:
    void bridgeToTheLeft(size_t loop);
    void groupTouching();
    void walk(size_t root, std::vector<Vec2>& out) const;
    size_t groupOf(size_t loop);

    const std::vector<AreaLoop>& m_loops;
    LoopIndex m_index;
    std::vector<Node> m_nodes;
    std::vector<size_t> m_parents; ///< of the trees of loops that belong to one polygon
};

LoopJoiner::LoopJoiner(const std::vector<AreaLoop>& loops)
    : m_loops(loops), m_index(loops), m_nodes(loops.size()), m_parents(loops.size()) {
    std::iota(m_parents.begin(), m_parents.end(), size_t{0});
}

size_t LoopJoiner::groupOf(size_t loop) {
    while (m_parents[loop] != loop) {
        m_parents[loop] = m_parents[m_parents[loop]];
        loop = m_parents[loop];
    }
    return loop;
}

/// Where the loop's leftmost point lies in the area of the other loops, the nearest edge to the left is one
/// that a bridge reaches without leaving that area.
void LoopJoiner::bridgeToTheLeft(size_t loop) {
    const Vec2 start = m_index.leftmostPoint(loop);
    const auto counts = [&](size_t other) {
        return other != loop && !(m_loops[loop].alwaysHole && m_loops[other].alwaysHole);
    };
    bool inside = false;
    m_index.search({start, start},
                   [&](size_t other) { inside = inside != (counts(other) && m_index.surrounds(other, start)); });
    m_nodes[loop].dropped = m_loops[loop].alwaysHole && !inside;
    const auto nearest = inside ? m_index.nearestToTheLeft(start, counts) : std::nullopt;
    if (nearest && groupOf(loop) != groupOf(nearest->loop)) {
        m_nodes[nearest->loop].bridges.insert({nearest->edge, {nearest->point, loop}});
        m_nodes[loop].bridged = true;
        m_parents[groupOf(loop)] = groupOf(nearest->loop);
    }
}

/// Loops that touch or cross must be filled as one polygon.
void LoopJoiner::groupTouching() {
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        if (m_nodes[i].dropped) {
            continue;
        }
        m_index.search(m_index.box(i), [&](size_t k) {
            if (k > i && !m_nodes[k].dropped && groupOf(i) != groupOf(k) && m_index.touch(i, k)) {
                m_parents[groupOf(i)] = groupOf(k);
            }
        });
    }
}

/// Appends a walk round the loop and over all bridges that leave it, from the loop's leftmost point back to
/// it. Bridges lead from loop to loop in chains of any length, hence the stack.
void LoopJoiner::walk(size_t root, std::vector<Vec2>& out) const {
    struct Visit {
        size_t loop;
        size_t edgesDone;
        std::vector<Bridge> bridges; ///< still to take on the current edge, the next one last
        bool away;                   ///< on a bridge, which is to be taken back
    };
    std::vector<Visit> stack{{root, 0, {}, false}};
    while (!stack.empty()) {
        Visit& visit = stack.back();
        const std::vector<Vec2>& points = m_loops[visit.loop].points;
        if (visit.away) {
            out.push_back(visit.bridges.back().at);
            visit.bridges.pop_back();
            visit.away = false;
        }
        if (visit.bridges.empty()) {
            const size_t edge = (m_index.leftmost(visit.loop) + visit.edgesDone) % points.size();
            out.push_back(points[edge]);
            if (visit.edgesDone++ == points.size()) {
                stack.pop_back();
                continue;
            }
            visit.bridges = bridgesOnEdge(m_nodes[visit.loop], edge, points[edge]);
            std::reverse(visit.bridges.begin(), visit.bridges.end());
        }
        if (!visit.bridges.empty()) {
            const Bridge bridge = visit.bridges.back();
            out.push_back(bridge.at);
            visit.away = true;
            stack.push_back({bridge.toLoop, 0, {}, false});
        }
    }
}

std::vector<std::vector<Vec2>> LoopJoiner::run() {
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        bridgeToTheLeft(i);
    }
    groupTouching();
    std::map<size_t, std::vector<Vec2>> polygons;
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        if (m_nodes[i].dropped || m_nodes[i].bridged) {
            continue;
        }
        std::vector<Vec2>& polygon = polygons[groupOf(i)];
        const bool goesBack = !polygon.empty();
        walk(i, polygon);
        if (goesBack) {
            polygon.push_back(polygon.front());
        }
    }
    std::vector<std::vector<Vec2>> result;
    result.reserve(polygons.size());
    for (auto& [group, polygon] : polygons) {
        result.push_back(std::move(polygon));
    }
    return result;
}

} // namespace

std::vector<std::vector<Vec2>> joinEvenOdd(const std::vector<AreaLoop>& loops) {
    const bool ordinary = loops.size() == 1 && !loops[0].alwaysHole;
    if (ordinary) {
        return {loops[0].points};
    }
    return LoopJoiner(loops).run();
}

} // namespace kelplot
