#include "geometry/EvenOddJoin.h"

#include <map>
#include <numeric>

#include "geometry/Box2.h"

namespace kelplot {

namespace {

/// A place on an edge of a loop.
struct Place {
    size_t loop = 0;
    size_t edge = 0;
    Vec2 point;
};

/// A loop that is entered from a place on another loop, at its leftmost point.
struct Bridge {
    Vec2 at;
    size_t toLoop = 0;
};

struct Node {
    const std::vector<Vec2>* points = nullptr;
    Box2 box;
    size_t leftmost = 0;
    bool alwaysHole = false;
    bool dropped = false;
    bool bridged = false;                  ///< entered from another loop
    std::multimap<size_t, Bridge> bridges; ///< by the edge from which they leave
};

/// Twice the area of the triangle, positive when it runs counter-clockwise with y upwards.
double turnOf(Vec2 a, Vec2 b, Vec2 c) {
    return cross(b - a, c - a);
}

Box2 boxOfSegment(Vec2 a, Vec2 b) {
    Box2 box;
    box.add(a);
    box.add(b);
    return box;
}

struct Segment {
    Vec2 a;
    Vec2 b;
};

/// Tells whether the segments share a point.
bool meet(const Segment& first, const Segment& second) {
    if (!boxOfSegment(first.a, first.b).intersects(boxOfSegment(second.a, second.b))) {
        return false;
    }
    const double a = turnOf(second.a, second.b, first.a);
    const double b = turnOf(second.a, second.b, first.b);
    const double c = turnOf(first.a, first.b, second.a);
    const double d = turnOf(first.a, first.b, second.b);
    return !((a > 0.0 && b > 0.0) || (a < 0.0 && b < 0.0) || (c > 0.0 && d > 0.0) || (c < 0.0 && d < 0.0));
}

std::vector<Segment> edgesNear(const Node& node, const Box2& box) {
    std::vector<Segment> edges;
    const std::vector<Vec2>& points = *node.points;
    for (size_t i = 0; i < points.size(); ++i) {
        const Segment edge{points[i], points[(i + 1) % points.size()]};
        if (boxOfSegment(edge.a, edge.b).intersects(box)) {
            edges.push_back(edge);
        }
    }
    return edges;
}

bool meet(const Node& first, const Node& second) {
    const std::vector<Segment> edges = edgesNear(first, second.box);
    if (edges.empty()) {
        return false;
    }
    for (const Segment& other : edgesNear(second, first.box)) {
        for (const Segment& edge : edges) {
            if (meet(edge, other)) {
                return true;
            }
        }
    }
    return false;
}

/// The bridges that leave an edge, in the order in which they are met along it.
std::vector<Bridge> bridgesOnEdge(const Node& node, size_t edge) {
    std::vector<Bridge> bridges;
    const auto range = node.bridges.equal_range(edge);
    for (auto it = range.first; it != range.second; ++it) {
        bridges.push_back(it->second);
    }
    const Vec2 from = (*node.points)[edge];
    std::sort(bridges.begin(), bridges.end(),
              [from](const Bridge& a, const Bridge& b) { return (a.at - from).length() < (b.at - from).length(); });
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

    std::vector<Node> m_nodes;
    std::vector<size_t> m_parents; ///< of the trees of loops that belong to one polygon
};

LoopJoiner::LoopJoiner(const std::vector<AreaLoop>& loops) {
    for (const AreaLoop& loop : loops) {
        if (loop.points.size() < 3) {
            continue;
        }
        Node node;
        node.points = &loop.points;
        node.alwaysHole = loop.alwaysHole;
        for (size_t i = 0; i < loop.points.size(); ++i) {
            node.box.add(loop.points[i]);
            node.leftmost = loop.points[i].x < loop.points[node.leftmost].x ? i : node.leftmost;
        }
        m_nodes.push_back(std::move(node));
    }
    m_parents.resize(m_nodes.size());
    std::iota(m_parents.begin(), m_parents.end(), size_t{0});
}

size_t LoopJoiner::groupOf(size_t loop) {
    while (m_parents[loop] != loop) {
        m_parents[loop] = m_parents[m_parents[loop]];
        loop = m_parents[loop];
    }
    return loop;
}

/// Counts the edges to the left of the loop's leftmost point. An odd number means that the point lies in
/// the area of the other loops, and the nearest edge is one that a bridge reaches without leaving it.
void LoopJoiner::bridgeToTheLeft(size_t loop) {
    const Vec2 start = (*m_nodes[loop].points)[m_nodes[loop].leftmost];
    bool inside = false;
    Place nearest;
    nearest.point.x = -std::numeric_limits<double>::infinity();
    for (size_t other = 0; other < m_nodes.size(); ++other) {
        const Node& node = m_nodes[other];
        const bool apart = start.y < node.box.min.y || start.y > node.box.max.y || node.box.min.x > start.x;
        if (other == loop || apart || (m_nodes[loop].alwaysHole && node.alwaysHole)) {
            continue;
        }
        for (size_t i = 0; i < node.points->size(); ++i) {
            const Vec2 a = (*node.points)[i];
            const Vec2 b = (*node.points)[(i + 1) % node.points->size()];
            const bool upwards = b.y > start.y;
            if ((a.y > start.y) == upwards || (upwards ? turnOf(a, b, start) > 0.0 : turnOf(a, b, start) < 0.0)) {
                continue;
            }
            inside = !inside;
            const double x = a.x + (b.x - a.x) * ((start.y - a.y) / (b.y - a.y));
            nearest = x > nearest.point.x ? Place{other, i, {x, start.y}} : nearest;
        }
    }
    m_nodes[loop].dropped = m_nodes[loop].alwaysHole && !inside;
    if (inside && groupOf(loop) != groupOf(nearest.loop)) {
        m_nodes[nearest.loop].bridges.insert({nearest.edge, {nearest.point, loop}});
        m_nodes[loop].bridged = true;
        m_parents[groupOf(loop)] = groupOf(nearest.loop);
    }
}

/// Loops that touch or cross must be filled as one polygon.
void LoopJoiner::groupTouching() {
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        for (size_t k = i + 1; k < m_nodes.size(); ++k) {
            const bool apart = m_nodes[i].dropped || m_nodes[k].dropped || !m_nodes[i].box.intersects(m_nodes[k].box);
            if (!apart && groupOf(i) != groupOf(k) && meet(m_nodes[i], m_nodes[k])) {
                m_parents[groupOf(i)] = groupOf(k);
            }
        }
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
        const Node& node = m_nodes[visit.loop];
        const size_t count = node.points->size();
        if (visit.away) {
            out.push_back(visit.bridges.back().at);
            visit.bridges.pop_back();
            visit.away = false;
        }
        if (visit.bridges.empty()) {
            const size_t edge = (node.leftmost + visit.edgesDone) % count;
            out.push_back((*node.points)[edge]);
            if (visit.edgesDone++ == count) {
                stack.pop_back();
                continue;
            }
            visit.bridges = bridgesOnEdge(node, edge);
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
    return LoopJoiner(loops).run();
}

} // namespace kelplot
