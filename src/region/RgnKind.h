// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

namespace KelDriver::Internal {

/// The values of `CVornRgn::m_nType`.
namespace rgnKind {

constexpr int32_t none = 0;
constexpr int32_t rectangle = 1;
constexpr int32_t general = 2;
constexpr int32_t empty = 3;

/// What callers are told, in the Win32 way.
constexpr int win32Empty = 1;
constexpr int win32Rectangle = 2;
constexpr int win32General = 3;

inline int toWin32(int32_t kind) {
    switch (kind) {
    case rectangle:
        return win32Rectangle;
    case general:
        return win32General;
    default:
        return win32Empty;
    }
}

} // namespace rgnKind

} // namespace KelDriver::Internal
