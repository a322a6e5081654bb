// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "reader/RecordDecoder.h"
#include "reader/annotation/DimensionStyles.h"
#include "reader/entity/BlockRecords.h"

namespace kelplot {

/// Leaders: a line from an arrow head to a note. The note is a record of its own.
class LeaderDecoder : public RecordDecoder {
public:
    LeaderDecoder(const DimensionStyles& styles, const BlockRecords& blocks) : m_styles(styles), m_blocks(blocks) {}

    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void takeExtended(const Group& group) override { m_changes.take(group); }
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    struct Record {
        std::string style; ///< as the file has it
        std::vector<Vec3> vertices;
        bool arrow = true;
        bool curved = false;
        bool hasText = true;
        bool hasHook = false;
        double textWidth = 0.0;
    };

    void extendUnderText(const StyleValues& style);
    void addArrow(const StyleValues& style, const RecordHeader& header, DrawingBuilder& builder);
    void addPath(const RecordHeader& header, DrawingBuilder& builder);

    const DimensionStyles& m_styles;
    const BlockRecords& m_blocks;
    Record m_record;
    StyleChanges m_changes;
};

} // namespace kelplot
