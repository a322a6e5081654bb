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

/// Dimension styles.
class DimensionStyles : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

    /// The style of this name, as the file writes it.
    LeaderStyle styleOf(std::string_view name, const TextEncoding& decoder) const;

private:
    std::string m_name;
    LeaderStyle m_style;
    QHash<QString, LeaderStyle> m_styles; ///< by name without case
};

} // namespace kelplot
