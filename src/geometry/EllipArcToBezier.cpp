// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/EllipArc.h"

#include <cmath>
#include <cstddef>
#include <vector>

#include "geometry/ArcSweep.h"

using namespace KelDriver::Internal;

namespace {

HT_BezierCurve curveBetween(const HT_EllipArc& arc, double t1, double t2) {
    HT_Double_Point start;
    HT_Double_Point startDerivative;
    HT_Double_Point end;
    HT_Double_Point endDerivative;
    arc.calcEllipicArcParam(t1, start, startDerivative);
    arc.calcEllipicArcParam(t2, end, endDerivative);
    const double dt = t2 - t1;
    const double tangent = std::tan(dt / 2.0);
    const double alpha = std::sin(dt) * (std::sqrt(4.0 + 3.0 * tangent * tangent) - 1.0) / 3.0;
    return {start,
            {start.x + alpha * startDerivative.x, start.y + alpha * startDerivative.y},
            {end.x - alpha * endDerivative.x, end.y - alpha * endDerivative.y},
            end};
}

} // namespace

void HT_ConvertEllipArcToBezierCurves(const HT_EllipArc& arc, std::vector<HT_BezierCurve>& curves) {
    curves.clear();
    const double sweep = positiveSweep(arc.endParam - arc.startParam);
    if (std::isnan(sweep)) {
        return;
    }
    const auto count = static_cast<size_t>(curveCountFor(sweep));
    const double step = sweep / static_cast<double>(count);
    curves.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        curves.push_back(curveBetween(arc, arc.startParam + static_cast<double>(i) * step,
                                      arc.startParam + static_cast<double>(i + 1) * step));
    }
}
