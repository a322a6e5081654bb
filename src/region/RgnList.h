// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <memory>

#include "keldriver/ClipRgn.h"

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

} // namespace KelDriver::Internal
