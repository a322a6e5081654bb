// SPDX-License-Identifier: BSD-3-Clause
#include "SharedPoints.h"

#include <algorithm>
#include <utility>

#include "Hashing.h"

namespace tarsel {

std::vector<SharedPoint> findSharedPoints(const std::vector<ClipperLib::IntPoint>& points) {
    constexpr VertexIndex freeSlot = UINT32_MAX;
    const unsigned bits = tableBits(points.size());
    std::vector<VertexIndex> slots(size_t{1} << bits, freeSlot);
    std::vector<SharedPoint> shared;
    for (VertexIndex vertex = 0; vertex < points.size(); ++vertex) {
        const ClipperLib::IntPoint& point = points[vertex];
        const uint64_t hash = scatter(static_cast<uint64_t>(point.X) + (scatter(static_cast<uint64_t>(point.Y)) >> 7));
        size_t slot = hash >> (64 - bits);
        while (slots[slot] != freeSlot && points[slots[slot]] != point) {
            slot = (slot + 1) & (slots.size() - 1);
        }
        if (slots[slot] == freeSlot) {
            slots[slot] = vertex;
        } else {
            shared.push_back({slots[slot], vertex});
        }
    }
    std::sort(shared.begin(), shared.end(), [](const SharedPoint& a, const SharedPoint& b) {
        return std::pair(a.first, a.vertex) < std::pair(b.first, b.vertex);
    });
    return shared;
}

} // namespace tarsel
