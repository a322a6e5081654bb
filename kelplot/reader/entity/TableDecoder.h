// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Tables, which are references to blocks that show them.
class TableDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    std::string m_block; ///< as the file writes it
    Vec3 m_position;
    Vec3 m_direction;
    bool m_inCells = false; ///< codes mean other things there
};

} // namespace kelplot
