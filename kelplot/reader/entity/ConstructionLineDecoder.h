// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Construction lines: rays, which have a start, and lines without any end.
class ConstructionLineDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    ConstructionLine m_line;
};

} // namespace kelplot
