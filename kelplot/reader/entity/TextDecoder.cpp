// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/TextDecoder.h"

#include "base/Angles.h"
#include "geometry/PlanMap.h"
#include "reader/RecordDecoder.h"

#include <utility>

#include "reader/GroupValue.h"
#include "reader/mtext/TextCodes.h"

namespace kelplot {

namespace {

// Bits of an attribute's code 70.
constexpr int invisibleAttribute = 1;
constexpr int constantAttribute = 2;

// Bits of code 71.
constexpr int backwardText = 2;
constexpr int upsideDownText = 4;

TextColumn columnOf(int number) {
    constexpr TextColumn columns[] = {TextColumn::left,    TextColumn::center, TextColumn::right,
                                      TextColumn::aligned, TextColumn::middle, TextColumn::fit};
    return number >= 0 && number <= 5 ? columns[number] : TextColumn::left;
}

TextRow rowOf(int number) {
    constexpr TextRow rows[] = {TextRow::baseline, TextRow::bottom, TextRow::middle, TextRow::top};
    return number >= 0 && number <= 3 ? rows[number] : TextRow::baseline;
}

} // namespace

void TextDecoder::begin(std::string_view type) {
    m_kind = type == "ATTRIB" ? Kind::attribute : (type == "ATTDEF" ? Kind::definition : Kind::text);
    m_text = Text();
    m_text.height = 0.0;
    m_value.clear();
    m_style.clear();
    m_tag.clear();
    m_flags = 0;
    m_aligned = false;
    m_pastText = false;
    m_paragraphs = MTextRecord();
    m_embeddedObjects = 0;
}

void TextDecoder::take(const Group& group) {
    m_pastText = m_pastText || (group.code == 100 && trimmed(group.value) == "AcDbXrecord");
    if (m_pastText || takePoint(group, 10, m_text.position)) {
        return;
    }
    if (takePoint(group, 11, m_text.alignment)) {
        m_aligned = true;
        return;
    }
    switch (group.code) {
    case 1:
        m_value = group.value;
        break;
    case 2:
        m_tag = trimmed(group.value);
        break;
    case 7:
        m_style = trimmed(group.value);
        break;
    case 70:
        m_flags = toInteger(group.value);
        break;
    default:
        takeLook(group);
        break;
    }
}

void TextDecoder::takeLook(const Group& group) {
    switch (group.code) {
    case 40:
        m_text.height = toReal(group.value);
        break;
    case 41:
        m_text.widthFactor = toReal(group.value);
        break;
    case 50:
        m_text.rotation = radiansFromDegrees(toReal(group.value));
        break;
    case 51:
        m_text.obliqueAngle = radiansFromDegrees(toReal(group.value));
        break;
    case 71:
        m_text.backward = (toInteger(group.value) & backwardText) != 0;
        m_text.upsideDown = (toInteger(group.value) & upsideDownText) != 0;
        break;
    case 72:
        m_text.column = columnOf(toInteger(group.value));
        break;
    case 73: // of an attribute: the length of its field
        if (m_kind == Kind::text) {
            m_text.row = rowOf(toInteger(group.value));
        }
        break;
    case 74:
        if (m_kind != Kind::text) {
            m_text.row = rowOf(toInteger(group.value));
        }
        break;
    default:
        break;
    }
}

/// The first object within an attribute is its paragraphs, the second one their columns.
void TextDecoder::takeEmbedded(const Group& group) {
    constexpr int embeddedObjectCode = 101;
    if (group.code == embeddedObjectCode) {
        ++m_embeddedObjects;
    } else if (m_embeddedObjects == 1) {
        m_paragraphs.take(group);
    } else {
        m_paragraphs.takeOfColumns(group);
    }
}

bool TextDecoder::isShown(const DrawingBuilder& builder) const {
    const bool visible = builder.showsAttribute((m_flags & invisibleAttribute) != 0);
    switch (m_kind) {
    case Kind::attribute:
        return visible;
    case Kind::definition:
        // In a block it stands for the attributes of the references, unless they all have the same.
        return !builder.inBlock() || (visible && (m_flags & constantAttribute) != 0);
    case Kind::text:
        break;
    }
    return true;
}

Text TextDecoder::build(std::string_view value, DrawingBuilder& builder) const {
    Text text = m_text;
    text.style = builder.textStyle(m_style);
    const TextStyle& style = builder.drawing().textStyles[text.style];
    if (!(text.height > 0.0)) {
        text.height = style.height > 0.0 ? style.height : Text().height;
    }
    if (!(text.widthFactor > 0.0)) {
        text.widthFactor = style.widthFactor;
    }
    if (!m_aligned) {
        text.alignment = text.position;
    }
    text.stretches = textStretches(builder.decoder().decode(value), builder.decoder());
    return text;
}

void TextDecoder::end(const RecordHeader& stated, DrawingBuilder& builder) {
    if (m_kind == Kind::definition && builder.inBlock() && stated.handle != 0) {
        builder.handles().keepAttributeDefinition(stated.handle, build({}, builder));
    }
    if (!isShown(builder)) {
        return;
    }
    RecordHeader header = stated;
    if (m_kind == Kind::attribute) {
        header.handle = 0; // in the order of entities its place is that of the reference before it
    }
    const bool showsTag = m_kind == Kind::definition && !builder.inBlock();
    if (m_paragraphs.hasText() && !showsTag) {
        builder.add(header, m_paragraphs.build(header.extrusion, builder));
        return;
    }
    Text text = build(showsTag ? m_tag : m_value, builder);
    if (!text.stretches.empty()) {
        builder.add(header, std::move(text));
    }
}

} // namespace kelplot
