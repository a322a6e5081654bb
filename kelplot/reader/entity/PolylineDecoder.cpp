// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/PolylineDecoder.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

// Bits of the head's code 70.
constexpr int splineFit = 4;
constexpr int spatialLine = 8;
constexpr int mesh = 16;
constexpr int meshClosedAcross = 32;
constexpr int polyface = 64;

// Bits of a vertex's code 70.
constexpr int frameControlPoint = 16;
constexpr int meshVertex = 64;
constexpr int polyfaceRecord = 128;

bool isFace(int vertexFlags) {
    return (vertexFlags & polyfaceRecord) != 0 && (vertexFlags & meshVertex) == 0;
}

} // namespace

void PolylineDecoder::beforeRecord(std::string_view type, DrawingBuilder& builder) {
    if (type != "VERTEX" && type != "SEQEND") {
        finish(builder);
    }
}

void PolylineDecoder::begin(std::string_view type) {
    if (type == "VERTEX") {
        m_part = Part::vertex;
        m_vertex = Vertex();
        m_vertex.point.startWidth = m_head.startWidth;
        m_vertex.point.endWidth = m_head.endWidth;
        m_corners = {};
        return;
    }
    m_part = type == "SEQEND" ? Part::end : Part::head;
    if (m_part == Part::head) {
        m_head = Head();
        m_vertices.clear();
        m_faces.clear();
        m_open = true;
    }
}

void PolylineDecoder::take(const Group& group) {
    if (m_part == Part::head) {
        takeOfHead(group);
    } else if (m_part == Part::vertex) {
        takeOfVertex(group);
    }
}

void PolylineDecoder::takeOfHead(const Group& group) {
    switch (group.code) {
    case 30:
        m_head.elevation = toReal(group.value);
        break;
    case 40:
        m_head.startWidth = std::max(0.0, toReal(group.value));
        break;
    case 41:
        m_head.endWidth = std::max(0.0, toReal(group.value));
        break;
    case 70:
        m_head.flags = toInteger(group.value);
        break;
    case 71:
    case 72:
    case 73:
    case 74:
        m_head.counts[static_cast<size_t>(group.code - 71)] = toInteger(group.value);
        break;
    default:
        break;
    }
}

void PolylineDecoder::takeOfVertex(const Group& group) {
    PolylineVertex& point = m_vertex.point;
    switch (group.code) {
    case 10:
        point.position.x = toReal(group.value);
        break;
    case 20:
        point.position.y = toReal(group.value);
        break;
    case 30:
        point.position.z = toReal(group.value);
        break;
    case 40:
        point.startWidth = std::max(0.0, toReal(group.value));
        break;
    case 41:
        point.endWidth = std::max(0.0, toReal(group.value));
        break;
    case 42:
        point.bulge = toReal(group.value);
        break;
    case 70:
        m_vertex.flags = toInteger(group.value);
        break;
    case 71:
    case 72:
    case 73:
    case 74:
        m_corners[static_cast<size_t>(group.code - 71)] = toInteger(group.value);
        break;
    default:
        break;
    }
}

void PolylineDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (m_part == Part::head) {
        m_head.header = header;
    } else if (m_part == Part::vertex) {
        endVertex(header);
    } else {
        finish(builder);
    }
}

void PolylineDecoder::endVertex(const RecordHeader& header) {
    if (!m_open) {
        return;
    }
    if (isFace(m_vertex.flags)) {
        m_faces.push_back({header, m_corners});
        m_faces.back().header.inPaperSpace = m_head.header.inPaperSpace;
        return;
    }
    // The frame of a fitted curve or surface steers its shape and is not drawn.
    const bool fitted = (m_head.flags & splineFit) != 0;
    if (!fitted || (m_vertex.flags & frameControlPoint) == 0) {
        m_vertices.push_back(m_vertex);
    }
}

/// Adds the polyline that has begun, if any.
void PolylineDecoder::finish(DrawingBuilder& builder) {
    if (!m_open) {
        return;
    }
    m_open = false;
    if ((m_head.flags & polyface) != 0) {
        addFaces(builder);
    } else if ((m_head.flags & mesh) != 0) {
        addMesh(builder);
    } else if (!m_vertices.empty()) {
        addPolyline(builder);
    }
}

void PolylineDecoder::addPolyline(DrawingBuilder& builder) const {
    Polyline polyline;
    polyline.closed = (m_head.flags & polylineClosed) != 0;
    polyline.spatial = (m_head.flags & spatialLine) != 0;
    polyline.continuousPattern = (m_head.flags & polylineContinuousPattern) != 0;
    polyline.vertices.reserve(m_vertices.size());
    for (const Vertex& vertex : m_vertices) {
        PolylineVertex& added = polyline.vertices.emplace_back(vertex.point);
        if (polyline.spatial) {
            added = PolylineVertex{vertex.point.position};
        } else {
            added.position.z = m_head.elevation;
        }
    }
    if (polyline.spatial) {
        builder.addInWorld(m_head.header, std::move(polyline));
    } else {
        builder.add(m_head.header, std::move(polyline));
    }
}

void PolylineDecoder::addMesh(DrawingBuilder& builder) const {
    const size_t smooth = (m_head.flags & splineFit) != 0 ? 2 : 0;
    const auto rows = static_cast<size_t>(std::max(0, m_head.counts[smooth]));
    const auto columns = static_cast<size_t>(std::max(0, m_head.counts[smooth + 1]));
    // The grid must have exactly as many places as there are vertices, or it is unknown how they join.
    if (rows == 0 || columns == 0 || m_vertices.size() / rows != columns || m_vertices.size() % rows != 0) {
        return;
    }
    const auto addLine = [&](size_t start, size_t stride, size_t length, bool closed) {
        Polyline line;
        line.spatial = true;
        line.closed = closed;
        for (size_t i = 0; i < length; ++i) {
            line.vertices.push_back(PolylineVertex{m_vertices[start + i * stride].point.position});
        }
        builder.addInWorld(m_head.header, std::move(line));
    };
    for (size_t row = 0; row < rows; ++row) {
        addLine(row * columns, 1, columns, (m_head.flags & meshClosedAcross) != 0);
    }
    for (size_t column = 0; column < columns; ++column) {
        addLine(column, columns, rows, (m_head.flags & polylineClosed) != 0);
    }
}

void PolylineDecoder::addFaces(DrawingBuilder& builder) const {
    const auto isVertex = [&](int corner) {
        return corner != 0 && static_cast<size_t>(std::llabs(corner)) <= m_vertices.size();
    };
    for (const Face& face : m_faces) {
        const auto used = static_cast<size_t>(std::count_if(face.corners.begin(), face.corners.end(), isVertex));
        if (used < 2 || !std::all_of(face.corners.begin(), face.corners.begin() + static_cast<int>(used), isVertex)) {
            continue;
        }
        Face3d face3d;
        for (size_t i = 0; i < face.corners.size(); ++i) {
            // A triangle's missing corner falls together with its last one.
            const int corner = face.corners[std::min(i, used - 1)];
            face3d.corners[i] = m_vertices[static_cast<size_t>(std::llabs(corner)) - 1].point.position;
            face3d.edgeVisible[i] = corner > 0;
        }
        builder.addInWorld(face.header, face3d);
    }
}

} // namespace kelplot
