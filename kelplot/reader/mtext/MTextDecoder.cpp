// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/mtext/MTextDecoder.h"

#include "base/Angles.h"
#include "geometry/PlanMap.h"
#include "reader/RecordDecoder.h"

#include <algorithm>
#include <cmath>

#include "reader/GroupValue.h"
#include "reader/mtext/MTextMarkup.h"

namespace kelplot {

namespace {

/// Far more than programs write; anything beyond it is left out.
constexpr size_t longestMarkup = size_t{1} << 20;

constexpr int lastAttachment = 9;
constexpr int exactSpacing = 2;

// Directions in which a text runs.
constexpr int downward = 3;
constexpr int asItsStyle = 5;

// Kinds of columns.
constexpr int equalColumns = 1;
constexpr int mostColumns = 100;

// Bits of code 90.
constexpr int colouredMask = 1;
constexpr int paperMask = 2;
constexpr int textFrame = 16;

double nonNegative(std::string_view value) {
    return std::max(0.0, toReal(value));
}

} // namespace

void MTextRecord::takeText(std::string_view chunk) {
    m_markup += chunk.substr(0, longestMarkup - m_markup.size());
}

void MTextRecord::take(const Group& group) {
    if (takePoint(group, 10, m_position) || takePoint(group, 11, m_direction) || takeColumnGroup(group)) {
        return;
    }
    switch (group.code) {
    case 1:
    case 3:
        takeText(group.value);
        break;
    case 7:
        m_style = trimmed(group.value);
        break;
    case 40:
        m_height = nonNegative(group.value);
        break;
    case 41:
        m_width = nonNegative(group.value);
        break;
    case 44:
        m_lineSpacing = nonNegative(group.value);
        break;
    case 45:
        m_borderFactor = toReal(group.value);
        break;
    case 46:
        m_definedHeight = nonNegative(group.value);
        break;
    case 50:
        m_rotation = radiansFromDegrees(toReal(group.value));
        break;
    case 71:
        m_attachment = toInteger(group.value);
        break;
    case 72:
        m_flow = toInteger(group.value);
        break;
    case 73:
        m_lineSpacingStyle = toInteger(group.value);
        break;
    case 63:
        m_maskLook.colourNumber = toInteger(group.value);
        break;
    case 90:
        m_background = toInteger(group.value);
        break;
    case 421:
        m_maskLook.trueColour = toInteger(group.value) & 0xFFFFFF;
        break;
    default:
        break;
    }
}

/// Takes what a record without an object inside it says about columns.
bool MTextRecord::takeColumnGroup(const Group& group) {
    switch (group.code) {
    case 48:
        m_columns.width = nonNegative(group.value);
        return true;
    case 49:
        m_columns.gutter = nonNegative(group.value);
        return true;
    case 50:
        if (m_columns.type == 0) {
            return false;
        }
        m_columns.heights.push_back(nonNegative(group.value));
        return true;
    case 75:
        m_columns.type = toInteger(group.value);
        return true;
    case 76:
        m_columns.count = toInteger(group.value);
        return true;
    case 78:
        m_columns.reversed = toInteger(group.value) != 0;
        return true;
    case 79:
        m_columns.automaticHeight = toInteger(group.value) != 0;
        return true;
    default:
        return false;
    }
}

void MTextRecord::takeOfColumns(const Group& group) {
    switch (group.code) {
    case 41:
        m_definedHeight = nonNegative(group.value);
        break;
    case 43:
        m_depth = nonNegative(group.value);
        break;
    case 44:
        m_columns.width = nonNegative(group.value);
        break;
    case 45:
        m_columns.gutter = nonNegative(group.value);
        break;
    case 46:
        m_columns.heights.push_back(nonNegative(group.value));
        break;
    case 71:
        m_columns.type = toInteger(group.value);
        break;
    case 72:
        m_columns.count = toInteger(group.value);
        break;
    case 73:
        m_columns.automaticHeight = toInteger(group.value) != 0;
        break;
    case 74:
        m_columns.reversed = toInteger(group.value) != 0;
        break;
    default:
        break;
    }
}

TextColumns MTextRecord::columns() const {
    TextColumns columns;
    if (m_columns.type == 0 || m_columns.count < 2) {
        return columns;
    }
    columns.count = std::min(m_columns.count, mostColumns);
    columns.width = m_columns.width > 0.0 ? m_columns.width : m_width;
    columns.gutter = m_columns.gutter;
    columns.reversed = m_columns.reversed;
    columns.heights = m_columns.heights;
    if (m_columns.type == equalColumns || m_columns.automaticHeight || columns.heights.empty()) {
        columns.heights.assign(m_definedHeight > 0.0 ? 1 : 0, m_definedHeight);
    } else if (columns.heights.size() > static_cast<size_t>(columns.count)) {
        columns.heights.resize(static_cast<size_t>(columns.count));
    }
    return columns;
}

/// The angle of the base lines in the text's plane. Without a direction they run along the world's x axis before they
/// are turned, which in a mirrored text is not the axis of the plane.
double MTextRecord::rotation(const Vec3& extrusion) const {
    constexpr double across = 1e-9; // of its length: what is left of a direction that stands upright on the plane
    const auto angleOf = [&](const Vec3& inWorld) {
        const Vec3 direction = toPlane(inWorld, extrusion);
        const bool inPlane = std::hypot(direction.x, direction.y) > across * inWorld.length();
        return inPlane ? std::optional(std::atan2(direction.y, direction.x)) : std::nullopt;
    };
    const std::optional<double> stated = angleOf(m_direction);
    return stated ? *stated : angleOf({1.0, 0.0, 0.0}).value_or(0.0) + m_rotation;
}

MText MTextRecord::build(const Vec3& extrusion, DrawingBuilder& builder) const {
    MText text;
    text.style = builder.textStyle(m_style);
    const TextStyle& style = builder.drawing().textStyles[text.style];
    text.height = m_height > 0.0 ? m_height : (style.height > 0.0 ? style.height : text.height);
    text.position = toPlane(m_position, extrusion);
    text.rotation = rotation(extrusion);
    text.attachment = m_attachment >= 1 && m_attachment <= lastAttachment ? m_attachment : 1;
    text.width = m_width;
    text.depth = m_depth;
    text.lineSpacing = m_lineSpacing > 0.0 ? m_lineSpacing : 1.0;
    text.exactLineSpacing = m_lineSpacingStyle == exactSpacing;
    text.vertical = m_flow == downward || (m_flow == asItsStyle && style.vertical);
    text.masked = (m_background & (colouredMask | paperMask)) != 0;
    text.framed = (m_background & textFrame) != 0;
    if (text.masked || text.framed) {
        text.border = std::max(m_borderFactor - 1.0, 0.0) * text.height;
    }
    if ((m_background & colouredMask) != 0 && (m_background & paperMask) == 0) {
        text.maskColour = m_maskLook.colour();
    }
    text.columns = columns();
    CharacterFormat format;
    format.height = text.height;
    format.widthFactor = style.widthFactor;
    format.obliqueAngle = style.obliqueAngle;
    text.paragraphs = paragraphsOf(builder.decoder().decodeMarkup(m_markup), format, builder.decoder());
    return text;
}

} // namespace kelplot
