// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/NameTable.h"

namespace kelplot {

NameTable::Found NameTable::find(std::string_view bytes, const NameDecoder& decoder, std::string& newName) {
    if (m_hasLast && bytes == m_lastBytes) {
        return {m_lastIndex, false};
    }
    std::string name = decoder.decode(bytes);
    const QString key = QString::fromStdString(name).toCaseFolded();
    const auto known = m_indexOf.constFind(key);
    const bool added = known == m_indexOf.constEnd();
    const uint32_t index = added ? static_cast<uint32_t>(m_indexOf.size()) : *known;
    if (added) {
        m_indexOf.insert(key, index);
        newName = std::move(name);
    }
    m_lastBytes = bytes;
    m_lastIndex = index;
    m_hasLast = true;
    return {index, added};
}

} // namespace kelplot
