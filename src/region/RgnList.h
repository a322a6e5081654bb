// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>

#include "keldriver/ClipRgn.h"
#include "keldriver/Types.h"

namespace KelDriver::Internal {

struct RgnListDeleter {
    void operator()(HT_ClipRgn* rgn) const { KelDriver::HT_DeleteRgn(rgn); }
};

/// A list of contours while the library itself owns it.
using RgnListPtr = std::unique_ptr<HT_ClipRgn, RgnListDeleter>;

/// How many vertices a node really has.
inline int vertexCount(const HT_ClipRgn& node) {
    return node.points ? std::max(node.pointCount, 0) : 0;
}

/// The bounding box of one point.
inline HT_Double_Rectangle boxOf(const HT_Double_Point& point) {
    return {point.x, point.y, point.x, point.y};
}

/// Widens `box` so that it holds `point`; a coordinate that is not a number leaves its side as it is.
inline void growBox(HT_Double_Rectangle& box, const HT_Double_Point& point) {
    if (point.x < box.minX) {
        box.minX = point.x;
    } else if (point.x > box.maxX) {
        box.maxX = point.x;
    }
    if (point.y < box.minY) {
        box.minY = point.y;
    } else if (point.y > box.maxY) {
        box.maxY = point.y;
    }
}

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
