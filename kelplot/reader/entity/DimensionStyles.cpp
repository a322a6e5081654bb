// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/DimensionStyles.h"

#include <algorithm>

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

QString keyOf(std::string_view name, const TextEncoding& decoder) {
    return QString::fromStdString(decoder.decode(name)).toCaseFolded();
}

} // namespace

void LeaderStyle::take(const Group& group) {
    switch (group.code) {
    case 40:
        scale = toReal(group.value);
        break;
    case 41:
        arrowSize = std::max(0.0, toReal(group.value));
        break;
    case 77:
        textRow = toInteger(group.value);
        break;
    case 341:
        arrowBlock = toHandle(group.value);
        break;
    default:
        break;
    }
}

void DimensionStyles::begin(std::string_view) {
    m_name.clear();
    m_style = LeaderStyle();
}

void DimensionStyles::take(const Group& group) {
    if (group.code == 2) {
        m_name = trimmed(group.value);
    } else {
        m_style.take(group);
    }
}

void DimensionStyles::end(const RecordHeader&, DrawingBuilder& builder) {
    m_styles.insert(keyOf(m_name, builder.decoder()), m_style);
}

LeaderStyle DimensionStyles::styleOf(std::string_view name, const TextEncoding& decoder) const {
    return m_styles.value(keyOf(name, decoder));
}

} // namespace kelplot
