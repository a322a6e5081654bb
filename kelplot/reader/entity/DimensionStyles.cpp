// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/entity/DimensionStyles.h"

#include <algorithm>
#include <charconv>

#include "reader/GroupValue.h"

namespace kelplot {

namespace {

uint64_t toHandle(std::string_view text) {
    text = trimmed(text);
    uint64_t handle = 0;
    std::from_chars(text.data(), text.data() + text.size(), handle, 16);
    return handle;
}

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

void DimensionStyles::begin(std::string_view type) {
    m_isBlock = type == "BLOCK_RECORD";
    m_name.clear();
    m_handle = 0;
    m_style = LeaderStyle();
}

void DimensionStyles::take(const Group& group) {
    if (group.code == 2) {
        m_name = trimmed(group.value);
    } else if (m_isBlock && group.code == 5) {
        m_handle = toHandle(group.value);
    } else if (!m_isBlock) {
        m_style.take(group);
    }
}

void DimensionStyles::end(const RecordHeader&, DrawingBuilder& builder) {
    if (m_isBlock) {
        m_blocks.insert(m_handle, m_name);
    } else {
        m_styles.insert(keyOf(m_name, builder.decoder()), m_style);
    }
}

LeaderStyle DimensionStyles::styleOf(std::string_view name, const TextEncoding& decoder) const {
    return m_styles.value(keyOf(name, decoder));
}

} // namespace kelplot
