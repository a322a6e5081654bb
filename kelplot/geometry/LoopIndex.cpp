// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/LoopIndex.h"

namespace kelplot {

namespace {

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

} // namespace

LoopIndex::LoopIndex(const std::vector<AreaLoop>& loops) : m_tree({}) {
    m_loops.reserve(loops.size());
    std::vector<Box2> boxes;
    boxes.reserve(loops.size());
    for (const AreaLoop& loop : loops) {
        m_loops.push_back(arranged(loop.points));
        boxes.push_back(m_loops.back().box);
    }
    m_tree = BoxTree(boxes);
}

LoopIndex::Loop LoopIndex::arranged(const std::vector<Vec2>& points) {
    Box2 box;
    size_t leftmost = 0;
    std::vector<Box2> edges;
    edges.reserve(points.size());
    for (size_t i = 0; i < points.size(); ++i) {
        box.add(points[i]);
        leftmost = points[i].x < points[leftmost].x ? i : leftmost;
        edges.push_back(boxOfSegment(points[i], points[(i + 1) % points.size()]));
    }
    return {&points, box, leftmost, BoxTree(edges)};
}

LoopIndex::Segment LoopIndex::edge(size_t loop, size_t number) const {
    const std::vector<Vec2>& points = *m_loops[loop].points;
    return {points[number], points[(number + 1) % points.size()]};
}

std::optional<double> LoopIndex::passesLeft(const Segment& edge, Vec2 p) {
    const auto [a, b] = edge;
    const bool upwards = b.y > p.y;
    if ((a.y > p.y) == upwards || (upwards ? turnOf(a, b, p) > 0.0 : turnOf(a, b, p) < 0.0)) {
        return std::nullopt;
    }
    return a.x + (b.x - a.x) * ((p.y - a.y) / (b.y - a.y));
}

bool LoopIndex::meet(const Segment& first, const Segment& second) {
    const double a = turnOf(second.a, second.b, first.a);
    const double b = turnOf(second.a, second.b, first.b);
    const double c = turnOf(first.a, first.b, second.a);
    const double d = turnOf(first.a, first.b, second.b);
    return !((a > 0.0 && b > 0.0) || (a < 0.0 && b < 0.0) || (c > 0.0 && d > 0.0) || (c < 0.0 && d < 0.0));
}

Vec2 LoopIndex::innerPoint(size_t loop) const {
    const Box2& own = box(loop);
    const Vec2 right{own.max.x, std::floor(own.center().y) + 0.5}; // between whole numbers
    std::vector<double> passes;
    m_loops[loop].edges.search(rayToTheLeft(right), [&](size_t number) {
        if (const std::optional<double> x = passesLeft(edge(loop, number), right)) {
            passes.push_back(*x);
        }
    });
    std::sort(passes.begin(), passes.end());
    Vec2 inner = leftmostPoint(loop);
    double widest = 0.0;
    for (size_t i = 0; i + 1 < passes.size(); i += 2) {
        const double width = passes[i + 1] - passes[i];
        if (width > widest) {
            widest = width;
            inner = {passes[i] + width / 2.0, right.y};
        }
    }
    return inner;
}

bool LoopIndex::surrounds(size_t loop, Vec2 p) const {
    bool inside = false;
    m_loops[loop].edges.search(
        rayToTheLeft(p), [&](size_t number) { inside = inside != passesLeft(edge(loop, number), p).has_value(); });
    return inside;
}

bool LoopIndex::touch(size_t first, size_t second) const {
    bool found = false;
    Box2 wanted = box(second); // emptied at the first find, which ends the search
    m_loops[first].edges.search(wanted, [&](size_t number) {
        const Segment own = edge(first, number);
        Box2 near = boxOfSegment(own.a, own.b);
        m_loops[second].edges.search(near, [&](size_t other) {
            if (meet(own, edge(second, other))) {
                found = true;
                near = {};
                wanted = {};
            }
        });
    });
    return found;
}

} // namespace kelplot
