// SPDX-License-Identifier: BSD-3-Clause

// Feeds the polygon clipper any doubles and any counts.
//
// Input: one byte for the operation, then contours until the input ends: a byte with the operand in its lowest bit
// and the way of reading coordinates in the next two, a byte for the vertex count, and the vertices.

#include <cmath>
#include <cstdint>
#include <vector>

#include "FuzzInput.h"
#include "Require.h"
#include "gpc.h"

namespace {

struct Operand {
    std::vector<std::vector<gpc_vertex>> contours;
    std::vector<gpc_vertex_list> lists;
    std::vector<int> holes;

    gpc_polygon polygon() {
        for (auto& contour : contours) {
            lists.push_back({static_cast<int>(contour.size()), contour.empty() ? nullptr : contour.data()});
        }
        holes.resize(contours.size());
        return {static_cast<int>(lists.size()), holes.data(), lists.empty() ? nullptr : lists.data()};
    }
};

/// What is promised of every result.
void checkResult(const gpc_polygon& result) {
    require((result.num_contours == 0) == (result.contour == nullptr));
    require((result.num_contours == 0) == (result.hole == nullptr));
    for (int i = 0; i < result.num_contours; ++i) {
        const gpc_vertex_list& contour = result.contour[i];
        require(contour.num_vertices >= 3 && contour.vertex != nullptr);
        require(result.hole[i] == 0 || result.hole[i] == 1);
        for (int k = 0; k < contour.num_vertices; ++k) {
            require(std::isfinite(contour.vertex[k].x) && std::isfinite(contour.vertex[k].y));
        }
    }
    require(result.num_contours == 0 || result.hole[0] == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const auto op = static_cast<gpc_op>(input.take<uint8_t>() % 4);
    Operand operands[2];
    while (!input.atEnd()) {
        const auto head = input.take<uint8_t>();
        std::vector<gpc_vertex> contour(input.take<uint8_t>());
        for (gpc_vertex& vertex : contour) {
            vertex.x = input.takeCoordinate(head >> 1 & 3U);
            vertex.y = input.takeCoordinate(head >> 1 & 3U);
        }
        operands[head & 1U].contours.push_back(std::move(contour));
    }
    gpc_polygon subject = operands[0].polygon();
    gpc_polygon clip = operands[1].polygon();
    gpc_polygon result{};
    gpc_polygon_clip(op, &subject, &clip, &result);
    checkResult(result);
    gpc_free_polygon(&result);
    return 0;
}
