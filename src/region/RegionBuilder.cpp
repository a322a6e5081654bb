// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>

#include "geometry/Numeric.h"
#include "keldriver/ClipRgn.h"
#include "port/MallocPtr.h"

using namespace KelDriver::Internal;

namespace {

struct ContourDeleter {
    void operator()(HT_Contour* contour) const {
        HT_Free(contour->points);
        HT_Free(contour);
    }
};
using ContourPtr = std::unique_ptr<HT_Contour, ContourDeleter>;

ContourPtr newContour(const HT_Double_Point* pts, int n) {
    void* const memory = HT_Malloc(sizeof(HT_Contour));
    if (memory == nullptr) {
        return nullptr;
    }
    ContourPtr contour(new (memory) HT_Contour{nullptr, 0, 0, 0});
    contour->AddPoint(pts, n);
    return contour;
}

// Pieces chain where the very same vertex ends one and starts the next: not within a tolerance, and a zero is not
// a negative zero.
bool isSameVertex(const HT_Double_Point& a, const HT_Double_Point& b) {
    uint64_t bitsOfA[2];
    uint64_t bitsOfB[2];
    std::memcpy(bitsOfA, &a, sizeof a);
    std::memcpy(bitsOfB, &b, sizeof b);
    return bitsOfA[0] == bitsOfB[0] && bitsOfA[1] == bitsOfB[1];
}

bool isClosed(const HT_Double_Point* pts, int n) {
    const HT_Double_Point& last = pts[n - 1];
    return isEqual(pts[0].x, last.x, geometricTolerance) && isEqual(pts[0].y, last.y, geometricTolerance);
}

} // namespace

int HT_Contour::AddPoint(const HT_Double_Point* pts, int n) {
    HT_Double_Point* copy = nullptr;
    if (pts != nullptr) {
        const auto used = static_cast<size_t>(std::max(n, 0));
        copy = static_cast<HT_Double_Point*>(HT_Malloc(used * sizeof(HT_Double_Point)));
        if (copy != nullptr) {
            std::uninitialized_copy_n(pts, used, copy);
        }
    }
    HT_Free(points);
    points = copy;
    count = n;
    return 1;
}

int HT_Region::AddPoints(const HT_Double_Point* pts, int n, int closedFlag, unsigned char mode) {
    if (n < 2 || pts == nullptr) {
        return 0;
    }
    const bool endsAtStart = isClosed(pts, n);
    if (endsAtStart && n == 2) {
        return 0;
    }
    const bool isFinished = endsAtStart || closedFlag != 0;
    const HT_Double_Point end = pts[n - 1];
    if (!isFinished && current != nullptr && isSameVertex(lastPoint, pts[0])) {
        current->AddPoint(pts + 1, n - 1); // replaces what was chained: part of the interface
        lastPoint = end;
        return 1;
    }
    ContourPtr contour = newContour(pts, n);
    if (contour == nullptr) {
        return 0;
    }
    if (isFinished) {
        contour->closed = 1;
        contour->mode = mode;
        contours.push_back(contour.get());
        static_cast<void>(contour.release());
        return 1;
    }
    if (current != nullptr) {
        contours.push_back(current);
        current->closed = 1;
    }
    current = contour.release();
    lastPoint = end;
    return 1;
}

void HT_Region::EndData() {
    if (current != nullptr) {
        contours.push_back(current);
        current = nullptr;
    }
}

void HT_Region::Clear() {
    for (HT_Contour* contour : contours) {
        ContourDeleter()(contour);
    }
    contours.clear();
    // The record of an open contour alone is released, not its vertices: part of the interface.
    HT_Free(current);
}
