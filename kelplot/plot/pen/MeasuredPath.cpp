// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/MeasuredPath.h"

#include <algorithm>

namespace kelplot {

namespace {

/// Limits a stretch of a leg, from 0 to 1, to where one of its coordinates lies between two values.
void limit(double start, double way, double least, double most, LineSpan& span) {
    if (way == 0.0) {
        span = start < least || start > most ? LineSpan{1.0, 0.0} : span;
        return;
    }
    const auto [enters, leaves] = std::minmax({(least - start) / way, (most - start) / way});
    span = {std::max(span.from, enters), std::min(span.to, leaves)};
}

} // namespace

MeasuredPath::MeasuredPath(const std::vector<Vec2>& points) : m_points(points) {
    m_distances.reserve(points.size());
    m_distances.push_back(0.0);
    for (size_t i = 1; i < points.size(); ++i) {
        m_distances.push_back(m_distances.back() + (points[i] - points[i - 1]).length());
    }
}

/// The number of the leg, from a point to the next, that holds a place.
size_t MeasuredPath::legAt(double distance) const {
    const auto after = std::upper_bound(m_distances.begin(), m_distances.end(), distance);
    const auto next = static_cast<size_t>(after - m_distances.begin());
    return std::clamp<size_t>(next, 1, std::max<size_t>(m_points.size(), 2) - 1) - 1;
}

Vec2 MeasuredPath::pointAt(double distance) const {
    const size_t leg = legAt(distance);
    if (leg + 1 >= m_points.size() || distance >= length()) {
        return m_points.back();
    }
    const double legLength = m_distances[leg + 1] - m_distances[leg];
    const double part = legLength > 0.0 ? std::clamp((distance - m_distances[leg]) / legLength, 0.0, 1.0) : 0.0;
    return m_points[leg] + (m_points[leg + 1] - m_points[leg]) * part;
}

Vec2 MeasuredPath::directionAt(double distance) const {
    const size_t leg = legAt(distance);
    if (leg + 1 >= m_points.size()) {
        return {};
    }
    const Vec2 way = m_points[leg + 1] - m_points[leg];
    const double legLength = way.length();
    return legLength > 0.0 ? way * (1.0 / legLength) : Vec2{};
}

std::vector<Vec2> MeasuredPath::part(const LineSpan& span) const {
    const auto inner = std::upper_bound(m_distances.begin(), m_distances.end(), span.from);
    const auto end = std::lower_bound(inner, m_distances.end(), span.to);
    std::vector<Vec2> points{pointAt(span.from)};
    points.insert(points.end(), m_points.begin() + (inner - m_distances.begin()),
                  m_points.begin() + (end - m_distances.begin()));
    points.push_back(pointAt(span.to));
    return points;
}

std::optional<LineSpan> MeasuredPath::partIn(const Box2& box) const {
    std::optional<LineSpan> result;
    for (size_t i = 0; i + 1 < m_points.size(); ++i) {
        const Vec2 way = m_points[i + 1] - m_points[i];
        LineSpan inside{0.0, 1.0};
        limit(m_points[i].x, way.x, box.min.x, box.max.x, inside);
        limit(m_points[i].y, way.y, box.min.y, box.max.y, inside);
        if (inside.from <= inside.to) {
            const double legLength = m_distances[i + 1] - m_distances[i];
            const double from = m_distances[i] + inside.from * legLength;
            const double to = m_distances[i] + inside.to * legLength;
            result = LineSpan{result ? result->from : from, to};
        }
    }
    return result;
}

} // namespace kelplot
