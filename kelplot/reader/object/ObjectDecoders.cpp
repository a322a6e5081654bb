// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/object/ObjectDecoders.h"

#include <algorithm>
#include <iterator>

#include "reader/object/ObjectNames.h"

namespace kelplot {

void DictionaryDecoder::begin(std::string_view) {
    m_name.clear();
    m_entries.clear();
}

void DictionaryDecoder::take(const Group& group) {
    if (group.code == 3) {
        m_name = trimmed(group.value);
    } else if (group.code == 350 || group.code == 360) {
        if (objectNames::isNeeded(m_name)) {
            m_entries.push_back({m_name, toHandle(group.value)});
        }
        m_name.clear();
    }
}

void DictionaryDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (!m_entries.empty()) {
        builder.objects().dictionaries.insert(header.handle, m_entries);
    }
}

void DrawOrderDecoder::begin(std::string_view) {
    m_inTable = false;
    m_block = 0;
    m_entity = 0;
    m_handles.clear();
}

/// Before the table, the codes are those of the object itself.
void DrawOrderDecoder::take(const Group& group) {
    if (group.code == 100) {
        m_inTable = true;
    } else if (m_inTable && group.code == 330) {
        m_block = toHandle(group.value);
    } else if (m_inTable && group.code == 331) {
        m_entity = toHandle(group.value);
    } else if (m_inTable && group.code == 5 && m_entity != 0) {
        m_handles.insert(m_entity, toHandle(group.value));
        m_entity = 0;
    }
}

void DrawOrderDecoder::end(const RecordHeader&, DrawingBuilder& builder) {
    const std::string block = m_blocks.nameOf(m_block);
    if (!block.empty()) {
        builder.objects().drawOrders.push_back({block, std::move(m_handles)});
    }
}

void SpatialFilterDecoder::begin(std::string_view) {
    m_filter = SpatialFilter();
    m_numbers.clear();
}

void SpatialFilterDecoder::take(const Group& group) {
    switch (group.code) {
    case 10:
        m_filter.border.push_back({toReal(group.value), 0.0});
        break;
    case 20:
        if (!m_filter.border.empty()) {
            m_filter.border.back().y = toReal(group.value);
        }
        break;
    case 40:
        m_numbers.push_back(toReal(group.value));
        break;
    case 71:
        m_filter.on = toInteger(group.value) != 0;
        break;
    case 72:
    case 73:
        m_filter.slices = m_filter.slices || toInteger(group.value) != 0;
        break;
    default:
        break;
    }
}

namespace {

/// Each row of a transform has three factors and a distance.
Frame3 frameOf(const double* numbers) {
    const auto column = [&](size_t index) {
        return Vec3{numbers[index], numbers[index + 4], numbers[index + 8]};
    };
    return {column(0), column(1), column(2), column(3)};
}

} // namespace

/// The world to the block comes first, then the world to the border. A distance that cuts off what lies before it
/// stands ahead of them.
void SpatialFilterDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    constexpr size_t numbersOfTransform = 12;
    if (m_numbers.size() >= 2 * numbersOfTransform) {
        const double* const last = m_numbers.data() + m_numbers.size() - numbersOfTransform;
        m_filter.toBlock = frameOf(last - numbersOfTransform);
        m_filter.toBorder = frameOf(last);
    }
    m_filter.extensionDictionary = header.extensionDictionary;
    builder.objects().spatialFilters.insert(header.handle, m_filter);
}

void DataRecordDecoder::begin(std::string_view) {
    m_groups.clear();
}

void DataRecordDecoder::take(const Group& group) {
    constexpr int neededCodes[] = {10, 20, 91, 102, 335, 343, 420, 440};
    if (std::find(std::begin(neededCodes), std::end(neededCodes), group.code) != std::end(neededCodes)) {
        m_groups.push_back({group.code, std::string(trimmed(group.value))});
    }
}

void DataRecordDecoder::end(const RecordHeader& header, DrawingBuilder& builder) {
    if (!m_groups.empty()) {
        builder.objects().records.insert(header.handle, m_groups);
    }
}

} // namespace kelplot
