// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/HatchDecoder.h"

#include "base/Angles.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "reader/GroupValue.h"
#include "reader/entity/SplineDecoder.h"

namespace kelplot {

namespace {

/// The eccentric angle of the point of an ellipse that is seen from its centre at `angle`, in the same turn.
double eccentricAngle(double angle, double ratio) {
    if (ratio <= 0.0) {
        return angle;
    }
    const double withinTurn = std::atan2(std::sin(angle) / ratio, std::cos(angle));
    return angle + std::remainder(withinTurn - angle, turn);
}

// Bits of a loop's code 92.
constexpr int polylineLoop = 2;
constexpr int textBoxLoop = 8;

HatchStyle styleOf(int number) {
    switch (number) {
    case 1:
        return HatchStyle::outer;
    case 2:
        return HatchStyle::ignore;
    default:
        return HatchStyle::normal;
    }
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

void HatchDecoder::begin(std::string_view type) {
    m_hatch = Hatch();
    m_loop = HatchLoop();
    m_stretch = Stretch::head;
    m_isPolygon = type == "MPOLYGON";
    m_hatch.outlined = m_isPolygon;
    m_patternOffset = Vec2();
    m_solidCode = m_isPolygon ? 71 : 70;
    m_inLoop = false;
    m_isUserDefined = false;
    m_isDoubled = false;
    m_patternName.clear();
    m_gradient = HatchGradientDecoder();
}

void HatchDecoder::take(const Group& group) {
    if (group.code == 450 && m_stretch != Stretch::head) {
        endLoop();
        m_stretch = Stretch::gradient;
    }
    switch (m_stretch) {
    case Stretch::head:
        if (group.code == m_solidCode) {
            m_hatch.solid = toInteger(group.value) != 0;
        } else if (group.code == 2) {
            m_patternName = trimmed(group.value);
        } else if (group.code == 30) {
            m_hatch.elevation = toReal(group.value);
        } else if (group.code == 91) {
            m_stretch = Stretch::boundaries;
        }
        break;
    case Stretch::boundaries:
        takeOfBoundaries(group);
        break;
    case Stretch::pattern:
        takeOfPattern(group);
        break;
    case Stretch::gradient:
        m_gradient.take(group);
        break;
    }
}

void HatchDecoder::takeOfBoundaries(const Group& group) {
    switch (group.code) {
    case 75:
        m_hatch.style = styleOf(toInteger(group.value));
        [[fallthrough]];
    case 76:
        endLoop();
        m_stretch = Stretch::pattern;
        takeOfPattern(group);
        break;
    case 92:
        beginLoop(toInteger(group.value));
        break;
    default:
        if (m_inLoop && m_loopIsPolyline) {
            takeOfPolyline(group);
        } else if (m_inLoop) {
            m_edge.take(group, m_loop.edges);
        }
        break;
    }
}

void HatchDecoder::takeOfPattern(const Group& group) {
    switch (group.code) {
    case 41:
        m_hatch.pattern.scale = toReal(group.value);
        break;
    case 52:
        m_hatch.pattern.angle = radiansFromDegrees(toReal(group.value));
        break;
    case 53:
        m_hatch.pattern.lines.emplace_back().angle = radiansFromDegrees(toReal(group.value));
        break;
    case 76:
        m_isUserDefined = toInteger(group.value) == 0;
        break;
    case 77:
        m_isDoubled = toInteger(group.value) != 0;
        break;
    default:
        if (!(m_isPolygon && takeOfPolygon(group)) && !m_hatch.pattern.lines.empty()) {
            takeOfPatternLine(group);
        }
        break;
    }
}

/// Takes what only polygons state: the colour of their filling, and how far its pattern is moved.
bool HatchDecoder::takeOfPolygon(const Group& group) {
    constexpr int lastColour = 255;
    const int number = toInteger(group.value);
    if (group.code == 11 || group.code == 21) {
        (group.code == 11 ? m_patternOffset.x : m_patternOffset.y) = toReal(group.value);
        return true;
    }
    if (group.code == 63 && number > 0 && number <= lastColour) {
        m_hatch.fillColour = Colour{Colour::Kind::index, static_cast<uint32_t>(number)};
    }
    return group.code == 63;
}

void HatchDecoder::takeOfPatternLine(const Group& group) {
    PatternLine& line = m_hatch.pattern.lines.back();
    switch (group.code) {
    case 43:
        line.base.x = toReal(group.value);
        break;
    case 44:
        line.base.y = toReal(group.value);
        break;
    case 45:
        line.offset.x = toReal(group.value);
        break;
    case 46:
        line.offset.y = toReal(group.value);
        break;
    case 49:
        line.dashes.push_back(toReal(group.value));
        break;
    default:
        break;
    }
}

/// Some programs state one of the two families of a doubled pattern only.
void HatchDecoder::finishPattern(DrawingBuilder& builder) {
    HatchPattern& pattern = m_hatch.pattern;
    pattern.name = builder.decoder().decode(m_patternName);
    if (m_isUserDefined && m_isDoubled && pattern.lines.size() == 1) {
        PatternLine crossing = pattern.lines.front();
        crossing.angle += turn / 4.0;
        crossing.offset = leftNormal(crossing.offset);
        pattern.lines.push_back(std::move(crossing));
    }
    for (PatternLine& line : pattern.lines) {
        line.base = line.base + m_patternOffset;
    }
}

void HatchDecoder::takeOfPolyline(const Group& group) {
    if (group.code == 10) {
        m_loop.polyline.emplace_back().position.x = toReal(group.value);
    } else if (m_loop.polyline.empty()) {
        return;
    } else if (group.code == 20) {
        m_loop.polyline.back().position.y = toReal(group.value);
    } else if (group.code == 42) {
        m_loop.polyline.back().bulge = toReal(group.value);
    }
}

void HatchDecoder::beginLoop(int flags) {
    endLoop();
    m_inLoop = true;
    m_loopIsPolyline = (flags & polylineLoop) != 0;
    m_loop.textBox = (flags & textBoxLoop) != 0;
    m_edge = HatchEdgeDecoder();
}

void HatchDecoder::endLoop() {
    if (m_inLoop && !m_loopIsPolyline) {
        m_edge.finish(m_loop.edges);
    }
    if (!m_loop.edges.empty() || !m_loop.polyline.empty()) {
        m_loop.edges.shrink_to_fit();
        m_loop.polyline.shrink_to_fit();
        m_hatch.loops.push_back(std::move(m_loop));
    }
    m_loop = HatchLoop();
    m_inLoop = false;
}

void HatchDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    endLoop();
    if (!m_hatch.loops.empty()) {
        finishPattern(builder);
        m_hatch.gradient = m_gradient.finish();
        builder.add(header, std::move(m_hatch));
    } else {
        builder.addUnplotted(header, "HATCH without a boundary");
    }
}

} // namespace kelplot
