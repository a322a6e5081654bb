// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstring>

/// The position of a virtual function in the virtual table, counted from its first entry; a destructor has two.
///
/// The platform's C++ ABI keeps the offset in the first word of a member pointer, with or without a flag in its
/// lowest bit.
template <typename Member>
ptrdiff_t slotOf(Member member) {
    ptrdiff_t word = 0;
    std::memcpy(&word, &member, sizeof word);
    return (word & ~ptrdiff_t{1}) / static_cast<ptrdiff_t>(sizeof(void*));
}
