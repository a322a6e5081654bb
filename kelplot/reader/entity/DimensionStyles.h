// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <cstdint>
#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// What a dimension style says about leaders. These are the defaults for values that a drawing leaves out.
struct LeaderStyle {
    double scale = 1.0;
    double arrowSize = 0.18;
    int textRow = 0;         ///< 0: the text is beside the line, else above it
    uint64_t arrowBlock = 0; ///< handle; 0: the usual arrow

    /// Takes a value by the code that it has in the table.
    void take(const Group& group);

    /// In drawing units.
    double scaledArrowSize() const { return arrowSize * (scale > 0.0 ? scale : 1.0); }
};

/// Dimension styles, and the names of the blocks that they refer to by handle.
class DimensionStyles : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

    /// The style of this name, as the file writes it.
    LeaderStyle styleOf(std::string_view name, const TextEncoding& decoder) const;
    /// The name of a block, as the file writes it; empty where there is none.
    std::string blockOf(uint64_t handle) const { return m_blocks.value(handle); }

private:
    bool m_isBlock = false;
    std::string m_name;
    uint64_t m_handle = 0;
    LeaderStyle m_style;
    QHash<QString, LeaderStyle> m_styles; ///< by name without case
    QHash<uint64_t, std::string> m_blocks;
};

} // namespace kelplot
