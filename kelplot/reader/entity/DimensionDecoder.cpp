// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/DimensionDecoder.h"

#include "reader/GroupValue.h"

namespace kelplot {

void DimensionDecoder::begin(std::string_view) {
    m_block.clear();
    m_position = {};
}

void DimensionDecoder::take(const Group& group) {
    switch (group.code) {
    case 2:
        if (m_block.empty()) {
            m_block = trimmed(group.value);
        }
        break;
    case 12:
        m_position.x = toReal(group.value);
        break;
    case 22:
        m_position.y = toReal(group.value);
        break;
    case 32:
        m_position.z = toReal(group.value);
        break;
    default:
        break;
    }
}

void DimensionDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (m_block.empty()) {
        builder.addUnplotted(header, "DIMENSION without a block");
        return;
    }
    Insert insert;
    insert.block = builder.block(m_block);
    insert.position = m_position;
    // The block holds world coordinates, whatever plane was dimensioned.
    builder.addInWorld(header, insert);
}

} // namespace kelplot
