// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <vector>

#include "Vector.h"
#include "keldriver/ClipRgn.h"

namespace vnbase {

/// How a contour changes the region that the contours before it make up.
enum class Join : unsigned char { And, Copy, Diff, Or, Xor };

/// Whether a point is in the region after a contour joined it.
inline bool joined(Join join, bool before, bool inContour) {
    switch (join) {
    case Join::And:
        return before && inContour;
    case Join::Copy:
        return inContour;
    case Join::Diff:
        return before && !inContour;
    case Join::Or:
        return before || inContour;
    case Join::Xor:
        return before != inContour;
    }
    return before;
}

/// One contour of a region, with its vertices borrowed from the list.
struct Contour {
    Join join;
    const HT_Double_Point* points;
    size_t count; ///< 0 for a contour that holds nothing
};

/// The contours that decide, in the order of their joining; the first one is a `Copy`.
std::vector<Contour> decidingContours(const HT_ClipRgn* region);

/// A box outside of which no point is in the region; empty when the region has no area.
Box reachOf(const std::vector<Contour>& contours);

} // namespace vnbase
