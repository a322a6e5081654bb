// SPDX-License-Identifier: BSD-3-Clause
#include "Membership.h"

namespace vnbase {

namespace {

/// Whether an edge crosses the ray from a point to the right; of its two ends the lower one counts.
bool crossesRay(const Edge& edge, const Vec& p) {
    if ((edge.from.y > p.y) == (edge.to.y > p.y)) {
        return false;
    }
    if ((edge.from.x > p.x) == (edge.to.x > p.x)) {
        return edge.from.x > p.x;
    }
    const double t = (p.y - edge.from.y) / (edge.to.y - edge.from.y);
    return between(edge.from, edge.to, t).x > p.x;
}

} // namespace

Membership::Membership(const std::vector<Edge>& edges, const std::vector<Contour>& contours, const Box& reach,
                       size_t rows)
    : m_edges(edges), m_reach(reach), m_rows(reach, 1, rows, 0.0),
      m_rowEdges(
          m_rows.count(),
          [&](const auto& put) {
              for (uint32_t i = 0; i < edges.size(); ++i) {
                  const double left = reach.low.x; // an edge further right counts at its height, too
                  m_rows.forEach({left, edges[i].from.y}, {left, edges[i].to.y}, [&](size_t row) { put(row, i); });
              }
          }),
      m_clearedAfter{0} {
    for (const Contour& contour : contours) {
        m_joins.push_back(contour.join);
        const bool clears = contour.join == Join::And || contour.join == Join::Copy;
        m_clearedAfter.push_back(clears ? m_joins.size() : m_clearedAfter.back());
    }
}

bool Membership::withoutContours(bool state, size_t next, size_t contour) const {
    return state && m_clearedAfter[contour] <= next;
}

bool Membership::holds(const Vec& p) const {
    if (!m_reach.holds(p)) {
        return false;
    }
    bool state = false;
    size_t next = 0; // the contour after the last one that was joined
    const Buckets::Items row = m_rowEdges[m_rows.cellOf(p)];
    for (const uint32_t* item = row.begin(); item != row.end();) {
        const uint32_t contour = m_edges[*item].contour;
        bool inContour = false;
        for (; item != row.end() && m_edges[*item].contour == contour; ++item) {
            inContour ^= crossesRay(m_edges[*item], p);
        }
        state = joined(m_joins[contour], withoutContours(state, next, contour), inContour);
        next = contour + 1;
    }
    return withoutContours(state, next, m_joins.size());
}

} // namespace vnbase
