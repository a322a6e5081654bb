// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarsel {

/// What the operands' coordinates on one axis were before they were rounded to the grid.
///
/// Each axis has its own: a corner of two crossing rectangles takes x from one and y from the other.
class ExactValues {
public:
    /// @param capacity  how many values will be added at most
    explicit ExactValues(size_t capacity);

    /// Of several values on one grid line the smallest is kept, so that their order does not matter.
    void add(int64_t step, double value);
    /// The value kept for a grid line, or null. Quickest along the order in which the values were added.
    const double* find(int64_t step);

private:
    struct Entry {
        int64_t step;
        double value;
    };

    bool isAt(size_t index, int64_t step) const { return index < m_entries.size() && m_entries[index].step == step; }
    uint32_t& slotOf(int64_t step);

    std::vector<Entry> m_entries;  // in the order of their addition
    std::vector<uint32_t> m_slots; // indices by hash; never full, so every search meets a free slot
    unsigned m_shift;
    size_t m_lastFound = 0;
};

} // namespace tarsel
