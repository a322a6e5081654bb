// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/object/PlotStyleNames.h"

namespace kelplot {

void PlotStyleNames::begin(std::string_view) {
    m_entries.clear();
    m_name.clear();
}

void PlotStyleNames::take(const Group& group) {
    if (group.code == 3) {
        m_name = trimmed(group.value);
    } else if (group.code == 350) {
        m_entries.emplace_back(toHandle(group.value), m_name);
    }
}

void PlotStyleNames::end(const RecordHeader&, DrawingBuilder& builder) {
    for (const auto& [handle, name] : m_entries) {
        builder.namePlotStyle(handle, name);
    }
}

} // namespace kelplot
