// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "reader/RecordDecoder.h"
#include "reader/entity/BlockRecords.h"
#include "reader/entity/DimensionStyles.h"

namespace kelplot {

/// Leaders: a line from an arrow head to a note. The note is a record of its own.
class LeaderDecoder : public RecordDecoder {
public:
    LeaderDecoder(const DimensionStyles& styles, const BlockRecords& blocks) : m_styles(styles), m_blocks(blocks) {}

    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void takeExtended(const Group& group) override;
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
    /// A value that the leader has other than its style.
    struct Change {
        int code = 0;
        std::string value;
    };

    LeaderStyle style(const TextEncoding& decoder) const;
    void extendUnderText(const LeaderStyle& style);
    void addArrow(const LeaderStyle& style, const RecordHeader& header, DrawingBuilder& builder);
    void addPath(const RecordHeader& header, DrawingBuilder& builder);

    const DimensionStyles& m_styles;
    const BlockRecords& m_blocks;
    Record m_record;
    std::vector<Change> m_changes;
    bool m_inChanges = false;
    std::optional<int> m_changedCode; ///< its value comes next
};

} // namespace kelplot
