// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <memory>

#include "keldriver/Utility.h"

namespace KelDriver::Internal {

struct MallocDeleter {
    void operator()(void* memory) const { HT_Free(memory); }
};

/// Owns a block of `HT_Malloc` until it is handed over to a caller.
template <typename Type>
using MallocPtr = std::unique_ptr<Type, MallocDeleter>;

} // namespace KelDriver::Internal
