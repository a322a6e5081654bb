// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// The dictionary that gives the plot styles their names; drawings have no other of its type.
class PlotStyleNames : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    std::vector<std::pair<uint64_t, std::string>> m_entries; ///< handles with names, as the file writes them
    std::string m_name;                                      ///< of the entry that is being read
};

} // namespace kelplot
