// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/LwPolylineDecoder.h"

#include <algorithm>
#include <utility>

#include "reader/GroupValue.h"
#include "reader/entity/PolylineDecoder.h"

namespace kelplot {

void LwPolylineDecoder::begin(std::string_view) {
    m_vertices.clear();
    m_flags = 0;
    m_width = 0.0;
    m_elevation = 0.0;
}

void LwPolylineDecoder::take(const Group& group) {
    switch (group.code) {
    case 10: {
        PolylineVertex& vertex = m_vertices.emplace_back();
        vertex.position.x = toReal(group.value);
        vertex.startWidth = vertex.endWidth = m_width;
        break;
    }
    case 38:
        m_elevation = toReal(group.value);
        break;
    case 43:
        m_width = std::max(0.0, toReal(group.value));
        break;
    case 70:
        m_flags = toInteger(group.value);
        break;
    default:
        if (!m_vertices.empty()) {
            takeOfVertex(group);
        }
        break;
    }
}

void LwPolylineDecoder::takeOfVertex(const Group& group) {
    PolylineVertex& vertex = m_vertices.back();
    switch (group.code) {
    case 20:
        vertex.position.y = toReal(group.value);
        break;
    case 40:
        vertex.startWidth = std::max(0.0, toReal(group.value));
        break;
    case 41:
        vertex.endWidth = std::max(0.0, toReal(group.value));
        break;
    case 42:
        vertex.bulge = toReal(group.value);
        break;
    default:
        break;
    }
}

void LwPolylineDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (m_vertices.empty()) {
        return;
    }
    Polyline polyline;
    polyline.vertices = m_vertices;
    for (PolylineVertex& vertex : polyline.vertices) {
        vertex.position.z = m_elevation;
    }
    polyline.closed = (m_flags & polylineClosed) != 0;
    polyline.continuousPattern = (m_flags & polylineContinuousPattern) != 0;
    builder.add(header, std::move(polyline));
}

} // namespace kelplot
