// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <vector>

#include <clipper.hpp>

namespace tarsel {

/// A contour of a result, on the grid.
struct Contour {
    ClipperLib::Path path;
    bool hole;
};

/// Turns the clipper's raw result into contours that each pass a vertex once, the larger ones first and holes after
/// the outer ones around them.
///
/// The clipper may leave a contour that touches itself, where no part can be identified as a hole. It is cut
/// apart there.
std::vector<Contour> toContours(ClipperLib::Paths&& paths);

} // namespace tarsel
