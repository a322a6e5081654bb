// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// Line types with their texts. Shapes are told apart, but not read.
class LineTypeDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    std::string m_name; ///< as the file writes it
    uint64_t m_handle = 0;
    std::vector<double> m_pattern;
    std::vector<LineTypeInsert> m_inserts;
    std::vector<std::string> m_texts; ///< of the inserts, as the file writes them
};

} // namespace kelplot
