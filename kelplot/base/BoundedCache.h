// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>

namespace kelplot {

/// Remembers what was made for a key, in a table such as `std::map`. Once it holds `most` entries it is emptied;
/// whatever is asked for often is soon back.
template <typename Table, size_t most>
class BoundedCache {
public:
    using Key = typename Table::key_type;
    using Value = typename Table::mapped_type;

    /// What `make` made for the key, now or before. Valid until the next key.
    template <typename Make>
    const Value& get(const Key& key, Make make) {
        const auto known = m_values.find(key);
        if (known != m_values.end()) {
            return known->second;
        }
        if (m_values.size() >= most) {
            m_values.clear();
        }
        return m_values.emplace(key, make()).first->second;
    }

private:
    Table m_values;
};

} // namespace kelplot
