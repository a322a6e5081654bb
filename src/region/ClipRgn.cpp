// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/ClipRgn.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/Numeric.h"
#include "region/RgnList.h"

using namespace KelDriver::Internal;

namespace {

// A copy of one contour without a successor.
RgnListPtr cloneContour(int32_t mode, int32_t pointCount, const HT_Double_Point* points) {
    RgnListPtr node(new HT_ClipRgn{mode, nullptr, pointCount, nullptr});
    if (points != nullptr || pointCount < 0) {
        node->points = new HT_Double_Point[static_cast<size_t>(pointCount)]; // throws for a negative count
        std::copy_n(points, pointCount, node->points);
    }
    return node;
}

bool spans(double length, double from, double to) {
    return isEqual(length, std::fabs(to - from), geometricTolerance);
}

} // namespace

int HT_RGN_OP_2_CDC_OP(int op) {
    static constexpr int win32Codes[] = {5, 4, 2, 3}; // copy, difference, or, xor
    constexpr int win32And = 1;
    const int code = (op & 0xFF) - 1;
    return code >= 0 && code < 4 ? win32Codes[code] : win32And;
}

HT_ClipRgn* KelDriver::HT_CloneRgnData(const HT_ClipRgn* rgn) {
    RgnListPtr list;
    HT_ClipRgn* last = nullptr;
    for (; rgn != nullptr; rgn = rgn->next) {
        RgnListPtr node = cloneContour(rgn->mode, rgn->pointCount, rgn->points);
        if (last == nullptr) {
            list = std::move(node);
            last = list.get();
        } else {
            last->next = node.release();
            last = last->next;
        }
    }
    return list.release();
}

HT_ClipRgn* KelDriver::HT_CreateRgnFromData(const HT_ClipRgn* rgn) {
    return HT_CloneRgnData(rgn);
}

HT_ClipRgn* KelDriver::HT_GetClipRgnData(HT_ClipRgn* rgn) {
    return rgn;
}

int KelDriver::HT_DeleteRgn(HT_ClipRgn* rgn) {
    while (rgn != nullptr) {
        HT_ClipRgn* const next = rgn->next;
        delete[] rgn->points;
        delete rgn;
        rgn = next;
    }
    return 1;
}

HT_ClipRgn* KelDriver::HT_CreatePolygonRgnData(const HT_Double_Point* pts, int n) {
    return cloneContour(HT_RGN_XOR, pts == nullptr ? std::min(n, 0) : n, pts).release();
}

HT_ClipRgn* KelDriver::HT_CreateRectRgnData(const HT_Double_Point& a, const HT_Double_Point& b) {
    const HT_Double_Point corners[] = {a, {b.x, a.y}, b, {a.x, b.y}};
    return HT_CreatePolygonRgnData(corners, 4);
}

int KelDriver::HT_GetPointsRect(const HT_Double_Point* pts, int n, HT_Double_Rectangle* rect) {
    if (n == 0 || pts == nullptr) {
        return 0;
    }
    *rect = boxOf(pts[0]);
    for (int i = 1; i < n; ++i) {
        growBox(*rect, pts[i]);
    }
    return 1;
}

// The points may change in the published signature. NOLINTNEXTLINE(readability-non-const-parameter)
bool KelDriver::IsRect(HT_Double_Point* pts, HT_Double_Rectangle* rect) {
    HT_Double_Rectangle box{};
    HT_GetPointsRect(pts, 4, &box);
    if (rect != nullptr) {
        *rect = box;
    }
    // Both diagonals run through the whole box.
    const double width = box.maxX - box.minX;
    const double height = box.maxY - box.minY;
    return spans(width, pts[0].x, pts[2].x) && spans(height, pts[0].y, pts[2].y) && spans(width, pts[3].x, pts[1].x) &&
           spans(height, pts[3].y, pts[1].y);
}

bool KelDriver::HT_GetRgnMinRect(const HT_ClipRgn* rgn, HT_Double_Rectangle* rect) {
    const bool isFourPoints = rgn != nullptr && rgn->next == nullptr && rgn->pointCount == 4 && rgn->points != nullptr;
    return isFourPoints && IsRect(rgn->points, rect);
}
