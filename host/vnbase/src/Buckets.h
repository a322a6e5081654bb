// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

namespace vnbase {

/// Numbered lists of small numbers, packed into one array.
class Buckets {
public:
    struct Items {
        const uint32_t* first;
        const uint32_t* last;

        const uint32_t* begin() const { return first; }
        const uint32_t* end() const { return last; }
        bool isEmpty() const { return first == last; }
    };

    /// @param deal  is called twice with a function that stores a (bucket, item) pair, and must make the same calls
    /// both times
    template <typename Deal>
    Buckets(size_t count, const Deal& deal) : m_starts(count + 2) {
        deal([this](size_t bucket, uint32_t) { ++m_starts[bucket + 2]; });
        std::partial_sum(m_starts.begin(), m_starts.end(), m_starts.begin());
        m_items.resize(m_starts.back());
        deal([this](size_t bucket, uint32_t item) { m_items[m_starts[bucket + 1]++] = item; });
    }

    /// The items of a bucket, in the order in which they were stored.
    Items operator[](size_t bucket) const {
        return {m_items.data() + m_starts[bucket], m_items.data() + m_starts[bucket + 1]};
    }

private:
    std::vector<size_t> m_starts;
    std::vector<uint32_t> m_items;
};

} // namespace vnbase
