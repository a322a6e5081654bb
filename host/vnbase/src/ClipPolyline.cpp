// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

#include "PolylineClipper.h"
#include "vnbase.h"

// The C boundary: memory that the caller releases, and no exception past here.

namespace {

struct Release {
    void operator()(int32_t* buffer) const { freeClipPolylineBuffer(buffer); }
};
using Buffer = std::unique_ptr<int32_t, Release>;

Buffer bufferOf(const std::vector<int32_t>& values) {
    Buffer buffer(static_cast<int32_t*>(std::malloc(values.size() * sizeof(int32_t))));
    if (!buffer) {
        throw std::bad_alloc();
    }
    std::copy(values.begin(), values.end(), buffer.get());
    return buffer;
}

} // namespace

int clipPolylineByPolygons(const HT_Double_Point* points, int pointCount, const HT_ClipRgn* region,
                           int32_t** coordinates, int32_t** counts) {
    if (coordinates == nullptr || counts == nullptr) {
        return 0;
    }
    *coordinates = nullptr;
    *counts = nullptr;
    if (points == nullptr || pointCount < 2 || region == nullptr) {
        return 0;
    }
    try {
        const vnbase::Pieces pieces = vnbase::visiblePieces(points, static_cast<size_t>(pointCount), region);
        if (pieces.counts.empty() || pieces.counts.size() > std::numeric_limits<int>::max()) {
            return 0;
        }
        Buffer vertices = bufferOf(pieces.coordinates);
        *counts = bufferOf(pieces.counts).release();
        *coordinates = vertices.release();
        return static_cast<int>(pieces.counts.size());
    } catch (const std::exception&) {
        return 0; // out of memory: the interface has no other answer for it
    }
}

void freeClipPolylineBuffer(void* buffer) {
    std::free(buffer);
}
