// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <cstdint>
#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// The names of the blocks that other records refer to by handle.
class BlockRecords : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

    /// The name of a block, as the file writes it; empty where there is none.
    std::string nameOf(uint64_t handle) const { return m_names.value(handle); }

private:
    std::string m_name;
    uint64_t m_handle = 0;
    QHash<uint64_t, std::string> m_names;
};

} // namespace kelplot
