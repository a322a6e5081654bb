// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <vector>

#include <clipper.hpp>

namespace tarsel {

using VertexIndex = uint32_t;

/// A vertex at a point where an earlier one lies.
struct SharedPoint {
    VertexIndex first; ///< the first vertex at the point
    VertexIndex vertex;
};

/// All vertices that lie where an earlier one does, sorted by the first vertex at their point.
std::vector<SharedPoint> findSharedPoints(const std::vector<ClipperLib::IntPoint>& points);

} // namespace tarsel
