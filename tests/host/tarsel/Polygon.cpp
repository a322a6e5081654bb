// SPDX-License-Identifier: BSD-3-Clause
#include "Polygon.h"

#include <cmath>

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

} // namespace

double signedArea(const Polygon::Contour& contour) {
    double twice = 0;
    for (size_t i = 2; i < contour.size(); ++i) {
        const gpc_vertex& origin = contour.front();
        twice += (contour[i - 1].x - origin.x) * (contour[i].y - origin.y) -
                 (contour[i].x - origin.x) * (contour[i - 1].y - origin.y);
    }
    return twice / 2;
}

double Polygon::area() const {
    double sum = 0;
    for (size_t i = 0; i < contours.size(); ++i) {
        sum += (holes[i] ? -1 : 1) * std::fabs(signedArea(contours[i]));
    }
    return sum;
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

double evenOddArea(const Polygon& polygon) {
    return clip(GPC_UNION, polygon, {}).area();
}
