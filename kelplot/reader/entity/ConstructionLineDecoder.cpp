// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/ConstructionLineDecoder.h"

namespace kelplot {

void ConstructionLineDecoder::begin(std::string_view type) {
    m_line = {};
    m_line.bothWays = type == "XLINE";
}

void ConstructionLineDecoder::take(const Group& group) {
    constexpr int startCode = 10;
    constexpr int directionCode = 11;
    if (!takePoint(group, startCode, m_line.start)) {
        takePoint(group, directionCode, m_line.direction);
    }
}

void ConstructionLineDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (!(m_line.direction == Vec3())) {
        builder.addInWorld(header, m_line);
    }
}

} // namespace kelplot
