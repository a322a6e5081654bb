// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "reader/entity/BlockRecords.h"

namespace kelplot {

/// Dictionaries, of which only those entries are kept that a plot needs.
class DictionaryDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    std::string m_name;
    std::vector<DrawingObjects::Entry> m_entries;
};

/// Tables of the order in which the entities of a block are drawn.
class DrawOrderDecoder : public RecordDecoder {
public:
    /// @param blocks  outlive this
    explicit DrawOrderDecoder(const BlockRecords& blocks) : m_blocks(blocks) {}

    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    const BlockRecords& m_blocks;
    bool m_inTable = false;
    uint64_t m_block = 0;
    uint64_t m_entity = 0;
    SortHandles m_handles;
};

/// Borders that cut references to blocks.
class SpatialFilterDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    SpatialFilter m_filter;
    std::vector<double> m_numbers; ///< of the transforms, and a distance before them
};

/// Records with the data of programs, of which only those groups are kept that a plot may need.
class DataRecordDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    std::vector<KeptGroup> m_groups;
};

} // namespace kelplot
