// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdlib>

/// Ends the run as a finding where a promise of the code under test does not hold.
inline void require(bool promise) {
    if (!promise) {
        std::abort();
    }
}
