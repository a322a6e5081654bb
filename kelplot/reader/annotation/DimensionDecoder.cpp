// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/annotation/DimensionDecoder.h"

#include <cmath>
#include <utility>

#include "base/Angles.h"
#include "drawing/DimensionMeasure.h"
#include "geometry/PlanMap.h"
#include "reader/GroupValue.h"
#include "reader/annotation/DimensionLook.h"
#include "reader/annotation/MeasuredText.h"

namespace kelplot {

namespace {

using Kind = Dimension::Kind;

// Bits of code 70; the lowest three are the kind.
constexpr int kindBits = 7;
constexpr int ordinateOfX = 64;
constexpr int textPlacedByHand = 128;

Kind kindOf(const std::string& type, int flags) {
    const int number = flags & kindBits;
    return type == "DIMENSION" && number < static_cast<int>(Kind::other) ? static_cast<Kind>(number) : Kind::other;
}

const char* markOf(Kind kind) {
    if (kind == Kind::radius) {
        return "R";
    }
    return kind == Kind::diameter ? "%%c" : "";
}

/// Lengths on a sheet may have a factor that is not for those in the model; it is negative.
double lengthFactor(const StyleValues& style, bool onSheet) {
    const double factor = style.real(StyleCode::lengthFactor);
    return factor < 0.0 ? (onSheet ? -factor : 1.0) : factor;
}

} // namespace

void DimensionDecoder::begin(std::string_view type) {
    m_record = Record();
    m_record.type = type;
    m_changes.clear();
    m_picture.clear();
}

void DimensionDecoder::take(const Group& group) {
    m_picture.take(group);
    if (takePoint(group, 10, m_record.line) || takePoint(group, 11, m_record.textPosition) ||
        takePoint(group, 12, m_record.copyPosition) || takePoint(group, 13, m_record.first) ||
        takePoint(group, 14, m_record.second) || takePoint(group, 15, m_record.side) ||
        takePoint(group, 16, m_record.arc) || takeNumber(group)) {
        return;
    }
    switch (group.code) {
    case 1:
        m_record.text = group.value;
        break;
    case 2:
        if (m_record.block.empty()) {
            m_record.block = trimmed(group.value);
        }
        break;
    case 3:
        m_record.style = trimmed(group.value);
        break;
    case 70:
        m_record.flags = toInteger(group.value);
        break;
    default:
        break;
    }
}

bool DimensionDecoder::takeNumber(const Group& group) {
    switch (group.code) {
    case 41:
        m_record.lineSpacing = toReal(group.value);
        return true;
    case 42:
        m_record.measured = toReal(group.value);
        return true;
    case 50:
        m_record.direction = radiansFromDegrees(toReal(group.value));
        return true;
    case 51:
        m_record.level = -radiansFromDegrees(toReal(group.value));
        return true;
    case 52:
        m_record.oblique = radiansFromDegrees(toReal(group.value));
        return true;
    case 53:
        m_record.textTurn = radiansFromDegrees(toReal(group.value));
        return true;
    default:
        return false;
    }
}

Dimension DimensionDecoder::geometry(const Vec3& extrusion) const {
    const auto inPlane = [&](const Vec3& world) {
        const Vec3 point = toPlane(world, extrusion);
        return Vec2{point.x, point.y};
    };
    Dimension dimension;
    dimension.kind = kindOf(m_record.type, m_record.flags);
    dimension.type = m_record.type;
    dimension.extrusion = extrusion;
    dimension.elevation = toPlane(m_record.line, extrusion).z;
    dimension.line = inPlane(m_record.line);
    dimension.first = inPlane(m_record.first);
    dimension.second = inPlane(m_record.second);
    dimension.side = inPlane(m_record.side);
    dimension.arc = {m_record.arc.x, m_record.arc.y};
    dimension.direction = m_record.direction;
    dimension.oblique = m_record.oblique;
    dimension.level = m_record.level;
    dimension.ordinateOfX = (m_record.flags & ordinateOfX) != 0;
    if (m_record.textTurn != 0.0) {
        dimension.textTurn = m_record.textTurn;
    }
    return dimension;
}

void DimensionDecoder::setText(const RecordHeader& header, const StyleValues& style, DrawingBuilder& builder,
                               Dimension& dimension) const {
    if (m_record.text == " ") {
        return;
    }
    const bool angle = isAngle(dimension.kind);
    const double worked = measureOf(dimension);
    const double value = worked > 0.0 ? worked : std::abs(m_record.measured);
    const double factor = angle ? 1.0 : lengthFactor(style, header.inPaperSpace);
    const std::string markup = dimensionText({value * factor, angle, markOf(dimension.kind)}, trimmed(m_record.text),
                                             style, builder.decoder());
    MText text = annotationText(markup, style, builder);
    text.lineSpacing = m_record.lineSpacing > 0.0 ? m_record.lineSpacing : 1.0;
    text.position = m_record.textPosition;
    const bool isAtOrigin = text.position.x == 0.0 && text.position.y == 0.0;
    dimension.textMoved = (m_record.flags & textPlacedByHand) != 0;
    dimension.textPlaced = dimension.textMoved || !isAtOrigin;
    dimension.text = std::move(text);
}

void DimensionDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    Insert reference;
    reference.position = m_record.copyPosition;
    reference.block = m_record.block.empty() ? noBlock : builder.block(m_record.block);
    if (reference.block != noBlock && !builder.drawing().blocks[reference.block].entities.empty()) {
        // The block holds world coordinates, whatever plane was dimensioned.
        builder.addInWorld(header, reference);
        return;
    }
    const bool isOther = kindOf(m_record.type, m_record.flags) == Kind::other;
    if (isOther && m_picture.draw(header, builder) == ProxyGraphics::Outcome::whole) {
        return;
    }
    StyleValues style = m_styles.styleOf(m_record.style, builder);
    m_changes.applyTo(style);
    Dimension dimension = geometry(header.extrusion);
    dimension.look = lookOf(style, m_blocks, builder);
    setText(header, style, builder, dimension);
    builder.addAnnotation(header, std::move(dimension), reference);
}

} // namespace kelplot
