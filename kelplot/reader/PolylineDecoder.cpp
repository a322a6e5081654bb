#include "reader/PolylineDecoder.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "reader/GroupValue.h"
#include "reader/PolylineFlags.h"

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

bool PolylineDecoder::continues(std::string_view type) {
    return type == "VERTEX" || type == "SEQEND";
}

void PolylineDecoder::begin(std::string_view type) {
    if (type == "VERTEX") {
        part_ = Part::vertex;
        vertex_ = Vertex();
        vertex_.point.startWidth = head_.startWidth;
        vertex_.point.endWidth = head_.endWidth;
        corners_ = {};
        return;
    }
    part_ = type == "SEQEND" ? Part::end : Part::head;
    if (part_ == Part::head) {
        head_ = Head();
        vertices_.clear();
        faces_.clear();
        open_ = true;
    }
}

void PolylineDecoder::take(const Group& group) {
    if (part_ == Part::head) {
        takeOfHead(group);
    } else if (part_ == Part::vertex) {
        takeOfVertex(group);
    }
}

void PolylineDecoder::takeOfHead(const Group& group) {
    switch (group.code) {
    case 30:
        head_.elevation = toReal(group.value);
        break;
    case 40:
        head_.startWidth = std::max(0.0, toReal(group.value));
        break;
    case 41:
        head_.endWidth = std::max(0.0, toReal(group.value));
        break;
    case 70:
        head_.flags = toInteger(group.value);
        break;
    case 71:
    case 72:
    case 73:
    case 74:
        head_.counts[static_cast<std::size_t>(group.code - 71)] = toInteger(group.value);
        break;
    default:
        break;
    }
}

void PolylineDecoder::takeOfVertex(const Group& group) {
    PolylineVertex& point = vertex_.point;
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
        vertex_.flags = toInteger(group.value);
        break;
    case 71:
    case 72:
    case 73:
    case 74:
        corners_[static_cast<std::size_t>(group.code - 71)] = toInteger(group.value);
        break;
    default:
        break;
    }
}

void PolylineDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (part_ == Part::head) {
        head_.header = header;
    } else if (part_ == Part::vertex) {
        endVertex(header);
    } else {
        finish(builder);
    }
}

void PolylineDecoder::endVertex(const RecordHeader& header) {
    if (!open_) {
        return;
    }
    if (isFace(vertex_.flags)) {
        faces_.push_back({header, corners_});
        faces_.back().header.inPaperSpace = head_.header.inPaperSpace;
        return;
    }
    // The frame of a fitted curve or surface steers its shape and is not drawn.
    const bool fitted = (head_.flags & splineFit) != 0;
    if (!fitted || (vertex_.flags & frameControlPoint) == 0) {
        vertices_.push_back(vertex_);
    }
}

void PolylineDecoder::finish(DrawingBuilder& builder) {
    if (!open_) {
        return;
    }
    open_ = false;
    if ((head_.flags & polyface) != 0) {
        addFaces(builder);
    } else if ((head_.flags & mesh) != 0) {
        addMesh(builder);
    } else if (!vertices_.empty()) {
        addPolyline(builder);
    }
}

void PolylineDecoder::addPolyline(DrawingBuilder& builder) const {
    Polyline polyline;
    polyline.closed = (head_.flags & polylineClosed) != 0;
    polyline.spatial = (head_.flags & spatialLine) != 0;
    polyline.continuousPattern = (head_.flags & polylineContinuousPattern) != 0;
    polyline.vertices.reserve(vertices_.size());
    for (const Vertex& vertex : vertices_) {
        PolylineVertex& added = polyline.vertices.emplace_back(vertex.point);
        if (polyline.spatial) {
            added = PolylineVertex{vertex.point.position};
        } else {
            added.position.z = head_.elevation;
        }
    }
    if (polyline.spatial) {
        builder.addInWorld(head_.header, std::move(polyline));
    } else {
        builder.add(head_.header, std::move(polyline));
    }
}

void PolylineDecoder::addMesh(DrawingBuilder& builder) const {
    const std::size_t smooth = (head_.flags & splineFit) != 0 ? 2 : 0;
    const auto rows = static_cast<std::size_t>(std::max(0, head_.counts[smooth]));
    const auto columns = static_cast<std::size_t>(std::max(0, head_.counts[smooth + 1]));
    // The grid must be the vertices, no more and no less, or nobody knows how they join.
    if (rows == 0 || columns == 0 || vertices_.size() / rows != columns || vertices_.size() % rows != 0) {
        return;
    }
    const auto addLine = [&](std::size_t first, std::size_t step, std::size_t count, bool closed) {
        Polyline line;
        line.spatial = true;
        line.closed = closed;
        for (std::size_t i = 0; i < count; ++i) {
            line.vertices.push_back(PolylineVertex{vertices_[first + i * step].point.position});
        }
        builder.addInWorld(head_.header, std::move(line));
    };
    for (std::size_t row = 0; row < rows; ++row) {
        addLine(row * columns, 1, columns, (head_.flags & meshClosedAcross) != 0);
    }
    for (std::size_t column = 0; column < columns; ++column) {
        addLine(column, columns, rows, (head_.flags & polylineClosed) != 0);
    }
}

void PolylineDecoder::addFaces(DrawingBuilder& builder) const {
    const auto isVertex = [&](int corner) {
        return corner != 0 && static_cast<std::size_t>(std::llabs(corner)) <= vertices_.size();
    };
    for (const Face& face : faces_) {
        const auto used = static_cast<std::size_t>(std::count_if(face.corners.begin(), face.corners.end(), isVertex));
        if (used < 2 || !std::all_of(face.corners.begin(), face.corners.begin() + static_cast<int>(used), isVertex)) {
            continue;
        }
        Face3d face3d;
        for (std::size_t i = 0; i < face.corners.size(); ++i) {
            // A triangle's missing corner falls together with its last one.
            const int corner = face.corners[std::min(i, used - 1)];
            face3d.corners[i] = vertices_[static_cast<std::size_t>(std::llabs(corner)) - 1].point.position;
            face3d.edgeVisible[i] = corner > 0;
        }
        builder.addInWorld(face.header, face3d);
    }
}

} // namespace kelplot
