// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Dimensions of every kind: each is drawn by a block of its own.
class DimensionDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    std::string m_block;
    Vec3 m_position; ///< off the origin for a copy that shares the block of another dimension
};

} // namespace kelplot
