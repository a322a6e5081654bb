// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>

#include "keldriver/ClipRgn.h"

/// What a fake geometry module answers and what it was asked; the module exports one as `fakeModule`.
struct FakeModule {
    int result;
    const int32_t* coords; ///< copied into a buffer at each call; null: the module sets no buffers
    size_t coordCount;
    const int32_t* counts;
    size_t countCount;

    const HT_Double_Point* points;
    int pointCount;
    const HT_ClipRgn* region;
    bool buffersCameNull;
    void* given[2];    ///< the buffers of the last call
    void* released[2]; ///< what came back since, in order
    int releaseCount;
};
