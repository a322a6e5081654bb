// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/BlockRecords.h"

namespace kelplot {

void BlockRecords::begin(std::string_view) {
    m_name.clear();
    m_handle = 0;
}

void BlockRecords::take(const Group& group) {
    if (group.code == 2) {
        m_name = trimmed(group.value);
    } else if (group.code == 5) {
        m_handle = toHandle(group.value);
    }
}

void BlockRecords::end(const RecordHeader&, DrawingBuilder&) {
    m_names.insert(m_handle, m_name);
}

} // namespace kelplot
