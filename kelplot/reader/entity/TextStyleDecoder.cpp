// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/TextStyleDecoder.h"

#include "base/Angles.h"

#include <utility>

#include "reader/AttachedData.h"
#include "reader/GroupValue.h"

namespace kelplot {

namespace {

// Bits of code 70.
constexpr int shapeFile = 1;
constexpr int verticalStyle = 4;

// Bits of code 71.
constexpr int backwardStyle = 2;
constexpr int upsideDownStyle = 4;

// The attached data that names an outline font, and the bits of its number.
constexpr int italicFont = 0x1000000;
constexpr int boldFont = 0x2000000;

} // namespace

void TextStyleDecoder::begin(std::string_view) {
    *this = TextStyleDecoder();
}

void TextStyleDecoder::take(const Group& group) {
    switch (group.code) {
    case 2:
        m_name = trimmed(group.value);
        break;
    case 3:
        m_fontFile = trimmed(group.value);
        break;
    case 4:
        m_bigFontFile = trimmed(group.value);
        break;
    case 5:
        m_handle = toHandle(group.value);
        break;
    case 40:
        m_style.height = toReal(group.value);
        break;
    case 41:
        m_style.widthFactor = toReal(group.value);
        break;
    case 50:
        m_style.obliqueAngle = radiansFromDegrees(toReal(group.value));
        break;
    case 70:
        m_isShapes = (toInteger(group.value) & shapeFile) != 0;
        m_style.vertical = (toInteger(group.value) & verticalStyle) != 0;
        break;
    case 71:
        m_style.backward = (toInteger(group.value) & backwardStyle) != 0;
        m_style.upsideDown = (toInteger(group.value) & upsideDownStyle) != 0;
        break;
    default:
        break;
    }
}

void TextStyleDecoder::takeExtended(const Group& group) {
    if (group.code == attached::application) {
        m_tellsFont = trimmed(group.value) == "ACAD";
    } else if (m_tellsFont && group.code == attached::text) {
        m_family = trimmed(group.value);
    } else if (m_tellsFont && group.code == attached::integer) {
        m_fontFlags = toInteger(group.value);
    }
}

void TextStyleDecoder::end(const RecordHeader&, DrawingBuilder& builder) {
    if (m_isShapes) {
        builder.nameShapes(m_handle);
        return;
    }
    const TextEncoding& decoder = builder.decoder();
    m_style.font.isFile = m_family.empty();
    m_style.font.name = decoder.decode(m_style.font.isFile ? m_fontFile : m_family);
    m_style.font.bold = (m_fontFlags & boldFont) != 0;
    m_style.font.italic = (m_fontFlags & italicFont) != 0;
    m_style.bigFontFile = decoder.decode(m_bigFontFile);
    if (!(m_style.widthFactor > 0.0)) {
        m_style.widthFactor = 1.0;
    }
    const uint32_t index = builder.textStyle(m_name);
    builder.handles().nameTextStyle(m_handle, index);
    TextStyle& style = builder.drawing().textStyles[index];
    m_style.name = style.name;
    style = std::move(m_style);
}

} // namespace kelplot
