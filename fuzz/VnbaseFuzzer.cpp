// SPDX-License-Identifier: BSD-3-Clause

// Feeds the geometry module any region and any polyline.
//
// Input: shapes until it ends, the polyline first, then the contours. A shape is a byte with the way of reading
// coordinates in its two lowest bits and the operation code above, a byte for the vertex count, and the vertices.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "FuzzInput.h"
#include "Require.h"
#include "vnbase.h"

namespace {

struct Shape {
    int32_t mode;
    std::vector<HT_Double_Point> points;
};

Shape takeShape(FuzzInput& input) {
    const auto head = input.take<uint8_t>();
    Shape shape{head >> 2 & 7, std::vector<HT_Double_Point>(input.take<uint8_t>())};
    for (HT_Double_Point& point : shape.points) {
        point.x = input.takeCoordinate(head & 3U);
        point.y = input.takeCoordinate(head & 3U);
    }
    return shape;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const std::vector<HT_Double_Point> line = takeShape(input).points;
    std::vector<Shape> contours;
    while (!input.atEnd()) {
        contours.push_back(takeShape(input));
    }
    std::vector<HT_ClipRgn> region(contours.size());
    for (size_t i = 0; i < region.size(); ++i) {
        std::vector<HT_Double_Point>& points = contours[i].points;
        region[i] = {contours[i].mode, i + 1 < region.size() ? &region[i + 1] : nullptr,
                     static_cast<int32_t>(points.size()), points.data()};
    }
    int32_t* coordinates = nullptr;
    int32_t* counts = nullptr;
    const int lineCount = static_cast<int>(line.size());
    const int pieceCount = clipPolylineByPolygons(line.data(), lineCount, region.data(), &coordinates, &counts);
    require(pieceCount >= 0 && (pieceCount > 0) == (coordinates != nullptr) && (pieceCount > 0) == (counts != nullptr));
    int64_t sum = 0; // of every vertex, so that each is read
    const int32_t* next = coordinates;
    for (int i = 0; i < pieceCount; ++i) {
        require(counts[i] >= 2 && counts[i] <= lineCount);
        for (const int32_t* const end = next + ptrdiff_t{2} * counts[i]; next != end; ++next) {
            sum += *next;
        }
    }
    require(pieceCount > 0 || sum == 0);
    freeClipPolylineBuffer(coordinates);
    freeClipPolylineBuffer(counts);
    return 0;
}
