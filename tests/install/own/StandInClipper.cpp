// SPDX-License-Identifier: BSD-3-Clause

// A host application's own polygon clipper, which answers every operation with the same triangle.

#include <cstdlib>

#include "gpc.h"

extern "C" {

void* tarsel_malloc(size_t size) {
    return std::malloc(size);
}

void gpc_polygon_clip(gpc_op, gpc_polygon*, gpc_polygon*, gpc_polygon* result) {
    auto* vertices = static_cast<gpc_vertex*>(tarsel_malloc(3 * sizeof(gpc_vertex)));
    vertices[0] = {1, 2};
    vertices[1] = {5, 2};
    vertices[2] = {1, 7};
    result->num_contours = 1;
    result->hole = static_cast<int*>(std::calloc(1, sizeof(int)));
    result->contour = static_cast<gpc_vertex_list*>(tarsel_malloc(sizeof(gpc_vertex_list)));
    result->contour[0] = {3, vertices};
}

void gpc_free_polygon(gpc_polygon* polygon) {
    for (int i = 0; i < polygon->num_contours; ++i) {
        std::free(polygon->contour[i].vertex);
    }
    std::free(polygon->contour);
    std::free(polygon->hole);
    *polygon = {0, nullptr, nullptr};
}

} // extern "C"
