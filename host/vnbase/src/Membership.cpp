// SPDX-License-Identifier: BSD-3-Clause
#include "Membership.h"

namespace vnbase {

namespace {

/// Whether an edge crosses the ray from a point to the right; of its two ends the lower one counts.
bool crossesRay(const Vec& from, const Vec& to, const Vec& p) {
    if ((from.y > p.y) == (to.y > p.y)) {
        return false;
    }
    if ((from.x > p.x) == (to.x > p.x)) {
        return from.x > p.x;
    }
    return between(from, to, (p.y - from.y) / (to.y - from.y)).x > p.x;
}

} // namespace

Membership::Membership(const std::vector<Edge>& edges, const std::vector<Contour>& contours, const Box& reach,
                       const Strips& strips)
    : m_edges(edges), m_reach(reach), m_exchanged(strips.upright),
      m_rows({turned(reach.low), turned(reach.high)}, 1, strips.count, 0.0),
      m_rowEdges(m_rows.count(),
                 [&](const auto& put) {
                     const double left = turned(reach.low).x; // an edge further right counts at its height, too
                     for (uint32_t i = 0; i < edges.size(); ++i) {
                         const double from = turned(edges[i].from).y;
                         const double to = turned(edges[i].to).y;
                         m_rows.forEach({left, from}, {left, to}, [&](size_t row) { put(row, i); });
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
    const Vec place = turned(p);
    const Buckets::Items row = m_rowEdges[m_rows.cellOf(place)];
    for (const uint32_t* item = row.begin(); item != row.end();) {
        const uint32_t contour = m_edges[*item].contour;
        bool inContour = false;
        for (; item != row.end() && m_edges[*item].contour == contour; ++item) {
            inContour ^= crossesRay(turned(m_edges[*item].from), turned(m_edges[*item].to), place);
        }
        state = joined(m_joins[contour], withoutContours(state, next, contour), inContour);
        next = contour + 1;
    }
    return withoutContours(state, next, m_joins.size());
}

} // namespace vnbase
