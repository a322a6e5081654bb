// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/entity/BlockRecords.h"

namespace kelplot {

/// Layouts with their plot settings.
class LayoutDecoder : public RecordDecoder {
public:
    /// @param blocks  outlive this
    explicit LayoutDecoder(const BlockRecords& blocks) : m_blocks(blocks) {}

    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    /// The stretch of the record that is being read; codes mean other things in each.
    enum class Stretch { head, settings, layout };

    void takeOfSettings(const Group& group);
    void finishSettings();

    const BlockRecords& m_blocks;
    Stretch m_stretch = Stretch::head;
    Layout m_layout;
    std::string m_name; ///< as the file writes it
    std::string m_styleTable;
    uint64_t m_block = 0;
    int m_flags = 0;
    bool m_isInInches = false;
    int m_standardScale = -1;
    double m_paperUnits = 1.0; ///< of the scale
    double m_sheetUnits = 1.0;
};

} // namespace kelplot
