// SPDX-License-Identifier: BSD-3-Clause
#include "Conversion.h"

#include <utility>

namespace tarsel {

using ClipperLib::IntPoint;
using ClipperLib::Path;
using ClipperLib::Paths;

IntPoint Conversion::toGrid(const gpc_vertex& vertex) {
    const IntPoint point(m_grid.columnOf(vertex.x), m_grid.rowOf(vertex.y));
    m_columns.add(point.X, vertex.x);
    m_rows.add(point.Y, vertex.y);
    return point;
}

Paths Conversion::toGrid(const Outlines& outlines) {
    Paths paths;
    paths.reserve(outlines.size());
    for (const gpc_vertex_list* outline : outlines) {
        Path path;
        path.reserve(static_cast<size_t>(outline->num_vertices));
        for (int i = 0; i < outline->num_vertices; ++i) {
            path.push_back(toGrid(outline->vertex[i]));
        }
        paths.push_back(std::move(path));
    }
    return paths;
}

gpc_vertex Conversion::fromGrid(const IntPoint& point) {
    const double* x = m_columns.find(point.X);
    const double* y = m_rows.find(point.Y);
    // Adding zero turns a negative zero into a positive one.
    return {(x ? *x : m_grid.xOf(point.X)) + 0.0, (y ? *y : m_grid.yOf(point.Y)) + 0.0};
}

} // namespace tarsel
