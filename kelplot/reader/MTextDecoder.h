// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "reader/MTextGroups.h"
#include "reader/RecordDecoder.h"

namespace kelplot {

/// Texts of paragraphs.
class MTextDecoder : public RecordDecoder {
public:
    void begin(std::string_view) override { m_groups = MTextGroups(); }
    void take(const Group& group) override { m_groups.take(group); }
    void takeEmbedded(const Group& group) override { m_groups.takeOfColumns(group); }
    void end(const RecordHeader& header, DrawingBuilder& builder) override {
        if (m_groups.hasText()) {
            builder.add(header, m_groups.build(header.extrusion, builder));
        }
    }

private:
    MTextGroups m_groups;
};

} // namespace kelplot
