// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

#include "reader/NameDecoder.h"

namespace kelplot {

/// Numbers the names of one kind of thing in the order in which they turn up. Names that differ only by
/// case are the same name.
class NameTable {
public:
    struct Found {
        uint32_t index;
        bool added; ///< the name was not known before
    };

    /// The number of the name that `bytes` mean. `newName` receives the name in
    /// UTF-8 where it was added.
    Found find(std::string_view bytes, const NameDecoder& decoder, std::string& newName);

private:
    QHash<QString, uint32_t> m_indexOf;
    std::string m_lastBytes; ///< neighbours in a drawing mostly share their names
    uint32_t m_lastIndex = 0;
    bool m_hasLast = false;
};

} // namespace kelplot
