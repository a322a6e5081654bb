// SPDX-License-Identifier: BSD-3-Clause
#include "region/GpcPolygon.h"

#include <new>

namespace KelDriver::Internal {

GpcPolygonPtr makeGpcPolygon() {
    auto* polygon = static_cast<gpc_polygon*>(std::calloc(1, sizeof(gpc_polygon)));
    if (!polygon) {
        throw std::bad_alloc();
    }
    return GpcPolygonPtr(polygon);
}

GpcPolygonPtr combine(gpc_op op, const GpcPolygonPtr& subject, const GpcPolygonPtr& clip) {
    GpcPolygonPtr result = makeGpcPolygon();
    gpc_polygon_clip(op, subject.get(), clip.get(), result.get());
    return result;
}

} // namespace KelDriver::Internal
