// SPDX-License-Identifier: BSD-3-Clause
#include <cstdlib>

#include "keldriver/Utility.h"

void* HT_Malloc(unsigned long size) {
    return std::malloc(size);
}

void HT_Free(void* memory) {
    std::free(memory);
}
