// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/TableDecoder.h"

#include "geometry/PlanMap.h"

#include <cmath>

namespace kelplot {

void TableDecoder::begin(std::string_view) {
    m_block.clear();
    m_position = {};
    m_direction = {1.0, 0.0, 0.0};
    m_inCells = false;
}

void TableDecoder::take(const Group& group) {
    constexpr int cellTypeCode = 171;
    m_inCells = m_inCells || group.code == cellTypeCode;
    if (m_inCells || takePoint(group, 10, m_position) || takePoint(group, 11, m_direction)) {
        return;
    }
    if (group.code == 2 && m_block.empty()) {
        m_block = trimmed(group.value);
    }
}

void TableDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (m_block.empty()) {
        builder.addUnplotted(header, "ACAD_TABLE without a block");
        return;
    }
    const Vec3 direction = toPlane(m_direction, header.extrusion);
    Insert insert;
    insert.block = builder.block(m_block);
    insert.position = toPlane(m_position, header.extrusion);
    insert.rotation = std::atan2(direction.y, direction.x);
    builder.add(header, insert);
}

} // namespace kelplot
