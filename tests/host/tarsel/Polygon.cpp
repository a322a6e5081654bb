// SPDX-License-Identifier: BSD-3-Clause
#include "Polygon.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The clipper's records for a polygon, which stays their owner.
class Borrowed {
public:
    explicit Borrowed(Polygon polygon) : m_polygon(std::move(polygon)), m_holes(m_polygon.contours.size()) {
        for (Polygon::Contour& contour : m_polygon.contours) {
            m_lists.push_back({static_cast<int>(contour.size()), contour.data()});
        }
    }

    gpc_polygon record() { return {static_cast<int>(m_lists.size()), m_holes.data(), m_lists.data()}; }

private:
    Polygon m_polygon;
    std::vector<int> m_holes;
    std::vector<gpc_vertex_list> m_lists;
};

// From the contour's first vertex, so that a small contour far from the origin keeps its area.
double signedArea(const Polygon::Contour& contour) {
    double twice = 0;
    for (size_t i = 2; i < contour.size(); ++i) {
        const gpc_vertex& origin = contour.front();
        twice += (contour[i - 1].x - origin.x) * (contour[i].y - origin.y) -
                 (contour[i].x - origin.x) * (contour[i - 1].y - origin.y);
    }
    return twice / 2;
}

} // namespace

double Polygon::area() const {
    double sum = 0;
    for (size_t i = 0; i < contours.size(); ++i) {
        sum += (holes[i] ? -1 : 1) * std::fabs(signedArea(contours[i]));
    }
    return sum;
}

double Polygon::perimeter() const {
    double sum = 0;
    for (const Contour& contour : contours) {
        for (size_t i = 0; i < contour.size(); ++i) {
            const gpc_vertex& next = contour[(i + 1) % contour.size()];
            sum += std::hypot(next.x - contour[i].x, next.y - contour[i].y);
        }
    }
    return sum;
}

void Polygon::append(const Polygon& other) {
    contours.insert(contours.end(), other.contours.begin(), other.contours.end());
}

Polygon clip(gpc_op op, const Polygon& subject, const Polygon& clip) {
    Borrowed a(subject);
    Borrowed b(clip);
    gpc_polygon first = a.record();
    gpc_polygon second = b.record();
    gpc_polygon record{};
    gpc_polygon_clip(op, &first, &second, &record);
    Polygon result;
    for (int i = 0; i < record.num_contours; ++i) {
        const gpc_vertex_list& list = record.contour[i];
        result.contours.emplace_back(list.vertex, list.vertex + list.num_vertices);
        result.holes.push_back(record.hole[i] != 0);
    }
    gpc_free_polygon(&record);
    return result;
}

double boxArea(const std::vector<Polygon>& polygons) {
    gpc_vertex low{HUGE_VAL, HUGE_VAL};
    gpc_vertex high{-HUGE_VAL, -HUGE_VAL};
    for (const Polygon& polygon : polygons) {
        for (const Polygon::Contour& contour : polygon.contours) {
            for (const gpc_vertex& vertex : contour) {
                low = {std::min(low.x, vertex.x), std::min(low.y, vertex.y)};
                high = {std::max(high.x, vertex.x), std::max(high.y, vertex.y)};
            }
        }
    }
    return high.x < low.x ? 0 : (high.x - low.x) * (high.y - low.y);
}

double evenOddArea(const Polygon& polygon) {
    return clip(GPC_UNION, polygon, {}).area();
}
