// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/MlineDecoder.h"

namespace kelplot {

namespace {

constexpr size_t mostLines = 16; ///< of a multiline

// Bits of a multiline's code 71.
constexpr int closedLine = 2;
constexpr int withoutStartCap = 4;
constexpr int withoutEndCap = 8;

// Bits of a style's code 70.
constexpr int filled = 1;
constexpr int withJoints = 2;
constexpr int firstStartBit = 16;
constexpr int firstEndBit = 256;

/// The three bits of a cap lie beside one another.
MlineStyle::Cap capOf(int flags, int firstBit) {
    return {(flags & firstBit) != 0, (flags & firstBit * 4) != 0, (flags & firstBit * 2) != 0};
}

} // namespace

void MlineDecoder::begin(std::string_view) {
    m_mline = Mline();
    m_style.clear();
}

void MlineDecoder::take(const Group& group) {
    switch (group.code) {
    case 2:
        m_style = trimmed(group.value);
        break;
    case 11:
        m_mline.vertices.emplace_back().position.x = toReal(group.value);
        break;
    case 71: {
        const int flags = toInteger(group.value);
        m_mline.closed = (flags & closedLine) != 0;
        m_mline.startCap = (flags & withoutStartCap) == 0;
        m_mline.endCap = (flags & withoutEndCap) == 0;
        break;
    }
    default:
        if (!m_mline.vertices.empty()) {
            takeOfVertex(group);
        }
        break;
    }
}

void MlineDecoder::takeOfVertex(const Group& group) {
    MlineVertex& vertex = m_mline.vertices.back();
    if (takePoint(group, 11, vertex.position) || takePoint(group, 12, vertex.direction) ||
        takePoint(group, 13, vertex.miter)) {
        return;
    }
    if (group.code == 74 && vertex.lines.size() < mostLines) {
        vertex.lines.emplace_back();
    } else if (group.code == 41 && !vertex.lines.empty()) {
        vertex.lines.back().push_back(toReal(group.value));
    }
}

void MlineDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (!m_mline.vertices.empty()) {
        m_mline.style = builder.mlineStyle(m_style);
        builder.addInWorld(header, std::move(m_mline));
    }
}

void MlineStyles::begin(std::string_view) {
    m_name.clear();
    m_flags = 0;
    m_fill = RecordHeader();
    m_lines.clear();
}

void MlineStyles::take(const Group& group) {
    RecordHeader& look = m_lines.empty() ? m_fill : m_lines.back().look;
    switch (group.code) {
    case 2:
        m_name = trimmed(group.value);
        break;
    case 6:
        if (!m_lines.empty()) {
            m_lines.back().lineType = trimmed(group.value);
        }
        break;
    case 49:
        m_lines.emplace_back();
        break;
    case 62:
        look.colourNumber = toInteger(group.value);
        break;
    case 70:
        m_flags = toInteger(group.value);
        break;
    case 420:
        look.trueColour = toInteger(group.value) & 0xFFFFFF;
        break;
    default:
        break;
    }
}

void MlineStyles::end(const RecordHeader&, DrawingBuilder& builder) {
    MlineStyle style;
    for (const LineRecord& line : m_lines) {
        style.lines.push_back({line.look.colour(), builder.lineType(line.lineType)});
    }
    if ((m_flags & filled) != 0) {
        style.fill = m_fill.colour();
    }
    style.joints = (m_flags & withJoints) != 0;
    style.start = capOf(m_flags, firstStartBit);
    style.end = capOf(m_flags, firstEndBit);
    builder.drawing().mlineStyles[builder.mlineStyle(m_name)] = std::move(style);
}

} // namespace kelplot
