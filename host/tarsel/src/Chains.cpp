// SPDX-License-Identifier: BSD-3-Clause
#include "Chains.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>
#include <utility>

#include "Int128.h"

namespace tarsel {

namespace {

using ClipperLib::IntPoint;
using ClipperLib::Path;
using ClipperLib::Paths;

bool isLeftOf(const IntPoint& a, const IntPoint& b) {
    return a.X < b.X;
}

/// How far along an edge a point lies, if the edge passes it within rounding error; otherwise 0.
double distanceAlong(const IntPoint& from, const IntPoint& to, const IntPoint& point) {
    constexpr double rounding = 1.5; // grid steps: how far off an edge can be once its ends are rounded
    const Int128 dx = to.X - from.X;
    const Int128 dy = to.Y - from.Y;
    const Int128 px = point.X - from.X;
    const Int128 py = point.Y - from.Y;
    const double length = std::hypot(static_cast<double>(dx), static_cast<double>(dy));
    const double along = static_cast<double>(dx * px + dy * py) / length;
    const double aside = std::fabs(static_cast<double>(dx * py - dy * px)) / length;
    return point != to && along > 0 && along < length && aside <= rounding ? along : 0;
}

void appendLoop(const Path& points, Paths& loops) {
    if (points.size() >= 3) {
        loops.push_back(points);
    }
}

} // namespace

/// A point to insert into the edge that starts at a vertex.
struct Chains::Split {
    VertexIndex vertex;
    double along;
    IntPoint point;
};

Chains::Chains(const Paths& paths) {
    const auto addSize = [](size_t sum, const Path& path) {
        return sum + path.size();
    };
    m_points.reserve(std::accumulate(paths.begin(), paths.end(), size_t{0}, addSize));
    for (const Path& path : paths) {
        m_points.insert(m_points.end(), path.begin(), path.end());
    }
    m_next.resize(m_points.size());
    m_previous.resize(m_points.size());
    VertexIndex first = 0;
    for (const Path& path : paths) {
        const auto size = static_cast<VertexIndex>(path.size());
        for (VertexIndex i = 0; i < size; ++i) {
            m_next[first + i] = first + (i + 1 == size ? 0 : i + 1);
            m_previous[first + i] = first + (i == 0 ? size : i) - 1;
        }
        first += size;
    }
}

Path Chains::uncross(const std::vector<SharedPoint>& shared) {
    Path passed;
    Junction junction;
    std::vector<VertexIndex> vertices;
    for (size_t i = 0; i < shared.size(); ++i) {
        if (vertices.empty()) {
            vertices.push_back(shared[i].first);
        }
        vertices.push_back(shared[i].vertex);
        if (i + 1 < shared.size() && shared[i + 1].first == shared[i].first) {
            continue;
        }
        if (!uncross(vertices, junction)) {
            passed.push_back(m_points[shared[i].first]);
        }
        vertices.clear();
    }
    return passed;
}

/// @return false, and nothing is changed, when the ways at the vertices' common point do not fit together
bool Chains::uncross(const std::vector<VertexIndex>& vertices, Junction& junction) {
    junction.moveTo(m_points[vertices.front()]);
    for (const VertexIndex vertex : vertices) {
        junction.add(vertex, m_points[m_previous[vertex]], m_points[m_next[vertex]]);
    }
    const std::vector<Junction::Turn>* const turns = junction.turns();
    if (!turns) {
        return false;
    }
    m_oldNext.clear();
    for (const Junction::Turn& turn : *turns) {
        m_oldNext.push_back(m_next[turn.out]);
    }
    for (size_t i = 0; i < turns->size(); ++i) {
        m_next[(*turns)[i].in] = m_oldNext[i];
        m_previous[m_oldNext[i]] = (*turns)[i].in;
    }
    return true;
}

bool Chains::splitEdgesAt(Path points) {
    std::sort(points.begin(), points.end(), isLeftOf);
    std::vector<Split> splits;
    for (VertexIndex vertex = 0; vertex < m_points.size(); ++vertex) {
        const IntPoint& from = m_points[vertex];
        const IntPoint& to = m_points[m_next[vertex]];
        const IntPoint left{std::min(from.X, to.X) - 1, 0};
        const IntPoint right{std::max(from.X, to.X) + 1, 0};
        auto point = std::lower_bound(points.begin(), points.end(), left, isLeftOf);
        for (; point != points.end() && !isLeftOf(right, *point); ++point) {
            const double along = distanceAlong(from, to, *point);
            if (along > 0) {
                splits.push_back({vertex, along, *point});
            }
        }
    }
    // The farthest along an edge first, because each is inserted right after the edge's start.
    std::sort(splits.begin(), splits.end(), [](const Split& a, const Split& b) {
        return std::tuple(a.vertex, -a.along) < std::tuple(b.vertex, -b.along);
    });
    for (const Split& split : splits) {
        insertAfter(split.vertex, split.point);
    }
    return !splits.empty();
}

void Chains::insertAfter(VertexIndex vertex, const IntPoint& point) {
    const auto added = static_cast<VertexIndex>(m_points.size());
    const VertexIndex next = m_next[vertex];
    m_points.push_back(point);
    m_next.push_back(next);
    m_previous.push_back(vertex);
    m_next[vertex] = added;
    m_previous[next] = added;
}

Paths Chains::loops(const std::vector<SharedPoint>& shared) const {
    std::vector<VertexIndex> firstAtPoint(m_points.size());
    std::iota(firstAtPoint.begin(), firstAtPoint.end(), VertexIndex{0});
    for (const SharedPoint& point : shared) {
        firstAtPoint[point.vertex] = point.first;
    }
    constexpr size_t notOnWay = SIZE_MAX;
    std::vector<size_t> positionOnWay(m_points.size(), notOnWay); // by first vertex at a point
    std::vector<bool> done(m_points.size());
    Paths loops;
    std::vector<VertexIndex> way;
    const auto takeLoop = [&](size_t start) {
        Path loop;
        for (size_t i = start; i < way.size(); ++i) {
            loop.push_back(m_points[way[i]]);
            positionOnWay[way[i]] = notOnWay;
        }
        way.resize(start);
        appendLoop(loop, loops);
    };
    for (VertexIndex start = 0; start < m_points.size(); ++start) {
        for (VertexIndex vertex = start; !done[vertex]; vertex = m_next[vertex]) {
            done[vertex] = true;
            const VertexIndex place = firstAtPoint[vertex];
            if (positionOnWay[place] != notOnWay) {
                takeLoop(positionOnWay[place]);
            }
            positionOnWay[place] = way.size();
            way.push_back(place);
        }
        takeLoop(0);
    }
    return loops;
}

} // namespace tarsel
