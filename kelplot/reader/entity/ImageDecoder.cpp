// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/ImageDecoder.h"

#include <algorithm>
#include <utility>

#include "geometry/Crossings.h"
#include "reader/GroupValue.h"

namespace kelplot {

namespace {

constexpr int shownFlag = 1;
constexpr int clippedFlag = 4;
constexpr int transparentFlag = 8;

int perCentOf(std::string_view value) {
    return std::clamp(toInteger(value), 0, 100);
}

} // namespace

void ImageDecoder::begin(std::string_view type) {
    m_image = Image();
    m_covers = type == "WIPEOUT";
    m_flags = shownFlag;
    m_clips = false;
    m_definition.clear();
    m_vertices.clear();
}

/// Where a coordinate of the picture's place is kept; null for other codes.
double* ImageDecoder::coordinateOf(int code) {
    Vec3* const points[] = {&m_image.position, &m_image.u, &m_image.v};
    const int index = code % 10;
    if (code < 10 || code > 32 || index > 2) {
        return nullptr;
    }
    Vec3& point = *points[index];
    double* const axes[] = {&point.x, &point.y, &point.z};
    return axes[code / 10 - 1];
}

void ImageDecoder::take(const Group& group) {
    if (double* const coordinate = coordinateOf(group.code)) {
        *coordinate = toReal(group.value);
        return;
    }
    switch (group.code) {
    case 13:
        m_image.size.x = toReal(group.value);
        break;
    case 23:
        m_image.size.y = toReal(group.value);
        break;
    case 14:
        m_vertices.push_back({toReal(group.value), 0.0});
        break;
    case 24:
        if (!m_vertices.empty()) {
            m_vertices.back().y = toReal(group.value);
        }
        break;
    default:
        takeSetting(group);
        break;
    }
}

void ImageDecoder::takeSetting(const Group& group) {
    switch (group.code) {
    case 70:
        m_flags = toInteger(group.value);
        break;
    case 280:
        m_clips = toInteger(group.value) != 0;
        break;
    case 281:
        m_image.brightness = perCentOf(group.value);
        break;
    case 282:
        m_image.contrast = perCentOf(group.value);
        break;
    case 283:
        m_image.fade = perCentOf(group.value);
        break;
    case 290:
        m_image.clipInverted = toInteger(group.value) != 0;
        break;
    case 340:
        m_definition = trimmed(group.value);
        break;
    default:
        break;
    }
}

/// The vertices relative to the picture's corner; two vertices are opposite corners of a rectangle. Empty where they
/// bound nothing.
std::vector<Vec2> ImageDecoder::boundary() const {
    constexpr Vec2 cornerToMiddle{0.5, 0.5};
    std::vector<Vec2> vertices = m_vertices;
    if (vertices.size() == 2) {
        const Vec2 from = vertices[0];
        const Vec2 to = vertices[1];
        vertices = {from, {to.x, from.y}, to, {from.x, to.y}};
    }
    if (vertices.size() > 3 && vertices.front() == vertices.back()) {
        vertices.pop_back();
    }
    if (vertices.size() < 3) {
        return {};
    }
    for (Vec2& vertex : vertices) {
        vertex = vertex + cornerToMiddle;
    }
    return vertices;
}

void ImageDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    m_image.clip = boundary();
    m_image.clipped = !m_image.clip.empty() && (m_covers || (m_clips && (m_flags & clippedFlag) != 0));
    m_image.clipInverted = m_image.clipInverted && !m_covers;
    if (m_covers) {
        Wipeout wipeout;
        for (const Vec2 corner : m_image.outline()) {
            wipeout.boundary.push_back(m_image.pointAt(corner));
        }
        builder.addInWorld(header, std::move(wipeout));
        return;
    }
    m_image.crossings = m_image.clipped ? crossingsIn(m_image.clip) : 0;
    m_image.lostBorder = m_image.crossings > mostCrossings;
    if (m_image.lostBorder) {
        m_image.crossings = 0;
        m_image.clip = boxAround(m_image.clip);
        m_image.clipped = !m_image.clipInverted && !m_image.clip.empty();
    }
    m_image.definition = builder.image(m_definition);
    m_image.shown = (m_flags & shownFlag) != 0;
    m_image.transparent = (m_flags & transparentFlag) != 0;
    builder.addInWorld(header, std::move(m_image));
}

void ImageObjects::begin(std::string_view type) {
    m_type = type;
    m_handle.clear();
    m_path.clear();
    m_size = {};
    m_frames = 0;
}

void ImageObjects::take(const Group& group) {
    switch (group.code) {
    case 1:
        m_path = trimmed(group.value);
        break;
    case 5:
        m_handle = trimmed(group.value);
        break;
    case 10:
        m_size.x = toReal(group.value);
        break;
    case 20:
        m_size.y = toReal(group.value);
        break;
    case 70:
        m_frames = toInteger(group.value);
        break;
    default:
        break;
    }
}

void ImageObjects::end(const RecordHeader&, DrawingBuilder& builder) {
    Drawing& drawing = builder.drawing();
    if (m_type == "RASTERVARIABLES") {
        drawing.imageFrames = m_frames == framesPlotted;
    } else if (m_type == "WIPEOUTVARIABLES") {
        drawing.wipeoutFrames = m_frames == framesPlotted;
    } else {
        drawing.images[builder.image(m_handle)] = {builder.decoder().decode(m_path), m_size};
    }
}

} // namespace kelplot
