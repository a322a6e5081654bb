// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>

namespace tarsel {

/// Spreads neighbouring grid lines over all 64 bits; the upper bits are the best.
inline uint64_t scatter(uint64_t step) {
    return step * 0x9E3779B97F4A7C15U; // 2^64 over the golden ratio
}

/// How many bits number the slots of an open-addressing table that stays at most half full.
inline unsigned tableBits(size_t capacity) {
    unsigned bits = 1;
    while ((size_t{1} << bits) < 2 * capacity) {
        ++bits;
    }
    return bits;
}

} // namespace tarsel
