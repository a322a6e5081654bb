// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"
#include "reader/annotation/DimensionStyles.h"
#include "reader/entity/BlockRecords.h"

namespace kelplot {

/// Frames with the tolerances of a feature, which look as a dimension style says.
class ToleranceDecoder : public RecordDecoder {
public:
    ToleranceDecoder(const DimensionStyles& styles, const BlockRecords&) : m_styles(styles) {}

    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void takeExtended(const Group& group) override { m_changes.take(group); }
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    const DimensionStyles& m_styles;
    std::string m_style; ///< this and the text as the file has them
    std::string m_text;
    Vec3 m_position;
    Vec3 m_direction;
    StyleChanges m_changes;
};

} // namespace kelplot
