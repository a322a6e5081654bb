// SPDX-License-Identifier: BSD-3-Clause
#include "RegionIndex.h"

#include <limits>
#include <stdexcept>

namespace vnbase {

namespace {

/// How many equal parts to divide `range` into, so that edges covering `covered` of it in total touch a few parts each.
size_t partsFor(double range, double covered, size_t edgeCount, size_t limit) {
    const double parts = 4.0 * static_cast<double>(edgeCount) * range / std::max(covered, range);
    return static_cast<size_t>(std::clamp(parts, 1.0, static_cast<double>(limit)));
}

/// How much of a range edges cover in all, in x (`&Vec::x`) or in y.
double covered(const std::vector<Edge>& edges, const Box& box, double Vec::*axis) {
    double sum = 0.0;
    for (const Edge& edge : edges) {
        const double from = std::clamp(edge.from.*axis, box.low.*axis, box.high.*axis);
        const double to = std::clamp(edge.to.*axis, box.low.*axis, box.high.*axis);
        sum += std::fabs(to - from);
    }
    return sum;
}

/// Where a segment meets edges, collected for one segment.
class CutFinder {
public:
    CutFinder(const Vec& from, const Vec& to, double tolerance, std::vector<Cut>& cuts)
        : m_from(from), m_way(to - from), m_squaredLength(dot(m_way, m_way)),
          m_band(tolerance * std::sqrt(m_squaredLength)), m_cuts(cuts) {}

    void add(const Edge& edge) {
        const double from = cross(m_way, edge.from - m_from);
        const double to = cross(m_way, edge.to - m_from);
        if ((from > m_band && to > m_band) || (from < -m_band && to < -m_band)) {
            return;
        }
        if (std::fabs(from) <= m_band) {
            addBeside(edge.from, edge);
        }
        if (std::fabs(to) <= m_band) {
            addBeside(edge.to, edge);
        }
        if ((from > 0.0) != (to > 0.0)) { // so they differ
            addBeside(between(edge.from, edge.to, from / (from - to)), edge);
        }
    }

private:
    void addBeside(const Vec& p, const Edge& edge) {
        const double t = dot(m_way, p - m_from) / m_squaredLength;
        if (t > 0.0 && t < 1.0) {
            m_cuts.push_back({t, &edge});
        }
    }

    Vec m_from;
    Vec m_way;
    double m_squaredLength;
    double m_band; ///< the tolerance, as a cross product with the segment
    std::vector<Cut>& m_cuts;
};

constexpr double cellPad = 8.0;      // tolerances: an empty cell keeps away from edges by more than can matter
constexpr double besideOffset = 4.0; // tolerances: from an edge to a point clearly on one side of it

} // namespace

RegionIndex::RegionIndex(const std::vector<Contour>& contours, const Frame& frame, size_t segmentCount)
    : m_tolerance(frame.tolerance()), m_edges(edgesOf(contours, frame)),
      m_membership(m_edges, contours, frame.reach(), stripsFor(m_edges, frame, segmentCount)),
      m_cells(cellsFor(m_edges, frame, segmentCount)),
      m_cellEdges(m_cells.count(),
                  [this](const auto& put) {
                      for (uint32_t i = 0; i < m_edges.size(); ++i) {
                          m_cells.forEach(m_edges[i].from, m_edges[i].to, [&](size_t cell) { put(cell, i); });
                      }
                  }),
      m_states(m_cells.count()), m_asked(m_edges.size()) {
}

std::vector<Edge> RegionIndex::edgesOf(const std::vector<Contour>& contours, const Frame& frame) {
    std::vector<Edge> edges;
    for (size_t number = 0; number < contours.size(); ++number) {
        const Contour& contour = contours[number];
        if (contour.count == 0) {
            continue;
        }
        const HT_Double_Point* source = contour.points + contour.count - 1;
        for (const HT_Double_Point* p = contour.points; p != contour.points + contour.count; source = p++) {
            const Edge edge{frame.toFrame(*source), frame.toFrame(*p), source, p, static_cast<uint32_t>(number)};
            if (edge.from.x != edge.to.x || edge.from.y != edge.to.y) {
                edges.push_back(edge);
            }
        }
    }
    if (edges.size() > std::numeric_limits<uint32_t>::max()) {
        throw std::length_error("too many edges to number");
    }
    return edges;
}

Strips RegionIndex::stripsFor(const std::vector<Edge>& edges, const Frame& frame, size_t segmentCount) {
    constexpr double clearly = 4.0;
    const Box& box = frame.reach();
    const double width = box.high.x - box.low.x;
    const double height = box.high.y - box.low.y;
    const double coveredX = covered(edges, box, &Vec::x);
    const double coveredY = covered(edges, box, &Vec::y);
    const size_t limit = std::min<size_t>(4096, segmentCount + 16);
    // A row of teeth has all its edges side by side in one direction.
    if (clearly * coveredX / width < coveredY / height) {
        return {partsFor(width, coveredX, edges.size(), limit), true};
    }
    return {partsFor(height, coveredY, edges.size(), limit), false};
}

Cells RegionIndex::cellsFor(const std::vector<Edge>& edges, const Frame& frame, size_t segmentCount) {
    const Box& box = frame.reach();
    size_t columns = partsFor(box.high.x - box.low.x, covered(edges, box, &Vec::x), edges.size(), 1024);
    size_t rows = partsFor(box.high.y - box.low.y, covered(edges, box, &Vec::y), edges.size(), 1024);
    const size_t limit = 64 + 16 * std::min(edges.size(), segmentCount);
    while (columns * rows > limit) {
        (columns > rows ? columns : rows) /= 2;
    }
    return Cells(box, columns, rows, cellPad * frame.tolerance());
}

void RegionIndex::appendCuts(const Vec& from, const Vec& to, std::vector<Cut>& cuts) {
    CutFinder finder(from, to, m_tolerance, cuts);
    if (++m_segment == 0) { // the numbers start over
        std::fill(m_asked.begin(), m_asked.end(), 0);
        m_segment = 1;
    }
    m_cells.forEach(from, to, [&](size_t cell) {
        for (const uint32_t i : m_cellEdges[cell]) {
            if (m_asked[i] != m_segment) {
                m_asked[i] = m_segment;
                finder.add(m_edges[i]);
            }
        }
    });
}

bool RegionIndex::isUndivided(const Vec& a, const Vec& b) const {
    const size_t cell = m_cells.cellOf(a);
    return cell == m_cells.cellOf(b) && m_cellEdges[cell].isEmpty();
}

bool RegionIndex::touches(const Edge& edge, const Vec& p) const {
    const Vec way = edge.to - edge.from;
    const double t = std::clamp(dot(way, p - edge.from) / dot(way, way), 0.0, 1.0);
    const Vec apart = p - between(edge.from, edge.to, t);
    return dot(apart, apart) <= m_tolerance * m_tolerance;
}

bool RegionIndex::isBeside(const Edge& edge, const Vec& p) const {
    const Vec way = edge.to - edge.from;
    const double step = besideOffset * m_tolerance / std::sqrt(dot(way, way));
    return m_membership.holds({p.x - way.y * step, p.y + way.x * step}) ||
           m_membership.holds({p.x + way.y * step, p.y - way.x * step});
}

bool RegionIndex::holds(const Vec& p) {
    const size_t cell = m_cells.cellOf(p);
    const Buckets::Items edges = m_cellEdges[cell];
    if (!edges.isEmpty()) {
        bool isOnEdge = false; // then rounding decides on which side each contour sees the point
        for (const uint32_t i : edges) {
            if (!touches(m_edges[i], p)) {
                continue;
            }
            if (isBeside(m_edges[i], p)) {
                return true;
            }
            isOnEdge = true;
        }
        return !isOnEdge && m_membership.holds(p);
    }
    State& state = m_states[cell];
    if (state == State::Unknown) {
        state = m_membership.holds(p) ? State::Inside : State::Outside;
    }
    return state == State::Inside;
}

} // namespace vnbase
