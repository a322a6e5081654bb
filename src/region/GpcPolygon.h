// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdlib>
#include <memory>

#include "gpc.h"

namespace KelDriver::Internal {

struct GpcPolygonDeleter {
    void operator()(gpc_polygon* polygon) const {
        gpc_free_polygon(polygon);
        std::free(polygon);
    }
};

/// A clipper's record with its arrays.
using GpcPolygonPtr = std::unique_ptr<gpc_polygon, GpcPolygonDeleter>;

/// A record without contours; throws `std::bad_alloc` when memory runs out.
GpcPolygonPtr makeGpcPolygon();

/// The combination of two polygons, which may be the same.
GpcPolygonPtr combine(gpc_op op, const GpcPolygonPtr& subject, const GpcPolygonPtr& clip);

} // namespace KelDriver::Internal
