#include "reader/LwPolylineDecoder.h"

#include <algorithm>
#include <utility>

#include "reader/GroupValue.h"
#include "reader/PolylineFlags.h"

namespace kelplot {

void LwPolylineDecoder::begin(std::string_view) {
    vertices_.clear();
    flags_ = 0;
    width_ = 0.0;
    elevation_ = 0.0;
}

void LwPolylineDecoder::take(const Group& group) {
    switch (group.code) {
    case 10: {
        PolylineVertex& vertex = vertices_.emplace_back();
        vertex.position.x = toReal(group.value);
        vertex.startWidth = vertex.endWidth = width_;
        break;
    }
    case 38:
        elevation_ = toReal(group.value);
        break;
    case 43:
        width_ = std::max(0.0, toReal(group.value));
        break;
    case 70:
        flags_ = toInteger(group.value);
        break;
    default:
        if (!vertices_.empty()) {
            takeOfVertex(group);
        }
        break;
    }
}

void LwPolylineDecoder::takeOfVertex(const Group& group) {
    PolylineVertex& vertex = vertices_.back();
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
    if (vertices_.empty()) {
        return;
    }
    Polyline polyline;
    polyline.vertices = vertices_;
    for (PolylineVertex& vertex : polyline.vertices) {
        vertex.position.z = elevation_;
    }
    polyline.closed = (flags_ & polylineClosed) != 0;
    polyline.continuousPattern = (flags_ & polylineContinuousPattern) != 0;
    builder.add(header, std::move(polyline));
}

} // namespace kelplot
