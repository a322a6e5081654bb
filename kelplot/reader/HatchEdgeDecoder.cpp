// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/HatchEdgeDecoder.h"

#include <cmath>
#include <utility>

#include "reader/GroupValue.h"
#include "reader/SplineShape.h"

namespace kelplot {

namespace {

/// The eccentric angle of the point of an ellipse that is seen from its centre at `angle`, in the same turn.
double eccentricAngle(double angle, double ratio) {
    if (ratio <= 0.0) {
        return angle;
    }
    const double withinTurn = std::atan2(std::sin(angle) / ratio, std::cos(angle));
    return angle + std::remainder(withinTurn - angle, 2 * radiansFromDegrees(180.0));
}

} // namespace

void HatchEdgeDecoder::take(const Group& group, std::vector<HatchEdge>& edges) {
    if (group.code == 72) {
        finish(edges);
        begin(toInteger(group.value));
    } else if (m_kind == Kind::spline) {
        takeOfSpline(group);
    } else if (group.code == 73) {
        m_counterClockwise = toInteger(group.value) != 0;
    } else {
        takeReal(group.code, toReal(group.value));
    }
}

void HatchEdgeDecoder::begin(int kind) {
    *this = HatchEdgeDecoder();
    const bool known = kind >= static_cast<int>(Kind::line) && kind <= static_cast<int>(Kind::spline);
    m_kind = known ? static_cast<Kind>(kind) : Kind::none;
}

void HatchEdgeDecoder::takeReal(int code, double value) {
    switch (code) {
    case 10:
        m_first.x = value;
        break;
    case 20:
        m_first.y = value;
        break;
    case 11:
        m_second.x = value;
        break;
    case 21:
        m_second.y = value;
        break;
    case 40:
        m_size = value;
        break;
    case 50:
        m_startDegrees = value;
        break;
    case 51:
        m_endDegrees = value;
        break;
    default:
        break;
    }
}

void HatchEdgeDecoder::takeOfSpline(const Group& group) {
    const double value = toReal(group.value);
    switch (group.code) {
    case 10:
        m_spline.controlPoints.push_back({value, 0.0, 0.0});
        break;
    case 20:
        if (!m_spline.controlPoints.empty()) {
            m_spline.controlPoints.back().y = value;
        }
        break;
    case 11:
        m_spline.fitPoints.push_back({value, 0.0, 0.0});
        break;
    case 21:
        if (!m_spline.fitPoints.empty()) {
            m_spline.fitPoints.back().y = value;
        }
        break;
    case 40:
        m_spline.knots.push_back(value);
        break;
    case 42:
        m_spline.weights.push_back(value);
        break;
    case 74:
        m_spline.closed = toInteger(group.value) != 0;
        break;
    case 94:
        m_spline.degree = toInteger(group.value);
        break;
    default:
        break;
    }
}

void HatchEdgeDecoder::finish(std::vector<HatchEdge>& edges) {
    // The angles of an edge that runs clockwise are stored as seen from below the plane.
    const double start = radiansFromDegrees(m_counterClockwise ? m_startDegrees : 360.0 - m_endDegrees);
    const double end = radiansFromDegrees(m_counterClockwise ? m_endDegrees : 360.0 - m_startDegrees);
    switch (std::exchange(m_kind, Kind::none)) {
    case Kind::none:
        break;
    case Kind::line:
        edges.emplace_back(HatchLine{m_first, m_second});
        break;
    case Kind::arc:
        edges.emplace_back(HatchArc{m_first, m_size, start, end, m_counterClockwise});
        break;
    case Kind::ellipse:
        edges.emplace_back(HatchEllipse{m_first, m_second, m_size, eccentricAngle(start, m_size),
                                        eccentricAngle(end, m_size), m_counterClockwise});
        break;
    case Kind::spline:
        if (completeSpline(m_spline)) {
            edges.emplace_back(HatchSpline{std::move(m_spline)});
        }
        break;
    }
}

} // namespace kelplot
