// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

/// Heap allocations of the whole program so far. Linking this in replaces `malloc` and its kin, and with
/// them `operator new`.
int64_t allocationCount();
