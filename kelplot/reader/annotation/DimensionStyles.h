// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <string>

#include "reader/annotation/StyleValues.h"

namespace kelplot {

/// Dimension styles.
class DimensionStyles : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

    /// The style of this name, as the file writes it; without a name, the one that was last in use. A drawing that does
    /// not define it says in its header how dimensions look.
    StyleValues styleOf(std::string_view name, const DrawingBuilder& builder) const;

private:
    std::string m_name;
    bool m_hasFlags = false;
    StyleValues m_style;
    QHash<QString, StyleValues> m_styles; ///< by name without case
};

} // namespace kelplot
