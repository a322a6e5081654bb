// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <algorithm>

namespace kelplot {

/// A range of numbers; empty where `low` is above `high`.
struct Interval {
    double low;
    double high;

    bool isEmpty() const { return low > high; }
};

/// Narrows `range` to the numbers t for which `start` + t * `step` lies in `slab`. Bounds that are NaN have no effect.
inline void narrowToSlab(double start, double step, const Interval& slab, Interval& range) {
    if (step == 0.0) {
        if (start < slab.low || start > slab.high) {
            range = {1.0, 0.0};
        }
        return;
    }
    const double one = (slab.low - start) / step;
    const double other = (slab.high - start) / step;
    range.low = std::max(range.low, std::min(one, other));
    range.high = std::min(range.high, std::max(one, other));
}

} // namespace kelplot
