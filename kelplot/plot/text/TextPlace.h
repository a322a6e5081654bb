// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cmath>

#include "drawing/Text.h"

namespace kelplot {

/// Where a text hangs on its point: 0 at its left or upper edge, 1 in the middle, 2 at the other edge.
struct Attachment {
    int across = 0;
    int down = 0;
};

inline Attachment attachmentOf(const MText& text) {
    const int index = text.attachment >= 1 && text.attachment <= 9 ? text.attachment - 1 : 0;
    return {index % 3, index / 3};
}

/// The distance from line to line as a part of the usual one.
inline double relativeSpacingOf(const MText& text) {
    return text.lineSpacing > 0.0 && std::isfinite(text.lineSpacing) ? text.lineSpacing : 1.0;
}

} // namespace kelplot
