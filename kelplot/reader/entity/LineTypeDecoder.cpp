// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/LineTypeDecoder.h"

#include <algorithm>
#include <utility>

#include "base/Angles.h"

namespace kelplot {

namespace {

// Bits of code 74.
constexpr int turnedAsStated = 1;
constexpr int embeddedText = 2;
constexpr int embeddedShape = 4;

constexpr size_t longestText = 256; ///< bytes; each line of the type shows it many times

} // namespace

void LineTypeDecoder::begin(std::string_view) {
    *this = LineTypeDecoder();
}

void LineTypeDecoder::take(const Group& group) {
    constexpr size_t mostEntries = 256; // programs know a dozen; each line of the type goes through all
    if (group.code == 2) {
        m_name = trimmed(group.value);
    } else if (group.code == 5) {
        m_handle = toHandle(group.value);
    } else if (group.code == 49 && m_pattern.size() < mostEntries) {
        m_pattern.push_back(toReal(group.value));
    } else if (group.code == 74 && (toInteger(group.value) & (embeddedText | embeddedShape)) != 0 &&
               !m_pattern.empty() && m_inserts.size() < m_pattern.size()) {
        LineTypeInsert& insert = m_inserts.emplace_back();
        insert.entry = m_pattern.size() - 1;
        insert.isShape = (toInteger(group.value) & embeddedShape) != 0;
        insert.level = (toInteger(group.value) & turnedAsStated) != 0;
        m_texts.emplace_back();
    }
    if (m_inserts.empty()) {
        return;
    }
    LineTypeInsert& insert = m_inserts.back();
    switch (group.code) {
    case 9:
        m_texts.back() = trimmed(group.value).substr(0, longestText);
        break;
    case 44:
        insert.offset.x = toReal(group.value);
        break;
    case 45:
        insert.offset.y = toReal(group.value);
        break;
    case 46:
        insert.scale = toReal(group.value);
        break;
    case 50:
        insert.rotation = radiansFromDegrees(toReal(group.value));
        break;
    case 340:
        insert.style = toHandle(group.value);
        break;
    default:
        break;
    }
}

void LineTypeDecoder::end(const RecordHeader&, DrawingBuilder& builder) {
    const uint32_t index = builder.lineType(m_name);
    builder.handles().nameLineType(m_handle, index);
    if (index >= builder.drawing().lineTypes.size()) {
        return;
    }
    for (size_t i = 0; i < m_inserts.size(); ++i) {
        m_inserts[i].text = builder.decoder().decode(m_texts[i]);
    }
    // A pattern without length would never advance along a line.
    const bool advances = std::any_of(m_pattern.begin(), m_pattern.end(), [](double length) { return length != 0.0; });
    if (!advances) {
        m_pattern.clear();
        m_inserts.clear();
    }
    builder.drawing().lineTypes[index].defined = true;
    builder.drawing().lineTypes[index].pattern = std::move(m_pattern);
    builder.setInserts(index, std::move(m_inserts));
}

} // namespace kelplot
