// SPDX-License-Identifier: BSD-3-Clause
#include "AllocationCount.h"

#include <atomic>
#include <cstddef>

// glibc's own allocator, behind the names that are replaced below.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

std::atomic<int64_t> allocations{0};

void countOne() {
    allocations.fetch_add(1, std::memory_order_relaxed);
}

} // namespace

extern "C" void* malloc(size_t size) {
    countOne();
    return __libc_malloc(size);
}

extern "C" void* calloc(size_t count, size_t size) {
    countOne();
    return __libc_calloc(count, size);
}

extern "C" void* realloc(void* block, size_t size) {
    countOne();
    return __libc_realloc(block, size);
}

int64_t allocationCount() {
    return allocations.load(std::memory_order_relaxed);
}
