// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/Types.h"

#include <algorithm>
#include <cmath>

bool isEqual(double a, double b, double tol) {
    return tol > std::fabs(a - b);
}

void UnionRectangle(HT_Double_Rectangle& a, const HT_Double_Rectangle& b) {
    a = {std::min(a.minX, b.minX), std::min(a.minY, b.minY), std::max(a.maxX, b.maxX), std::max(a.maxY, b.maxY)};
}
