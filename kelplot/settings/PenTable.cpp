// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PenTable.h"

namespace kelplot {

const PenRule& PenTable::ruleFor(const QString& style) const {
    for (const QString& name : {style.toCaseFolded(), QStringLiteral("normal")}) {
        const auto found = m_named.constFind(name);
        if (found != m_named.constEnd()) {
            return *found;
        }
    }
    return m_rules[0];
}

} // namespace kelplot
