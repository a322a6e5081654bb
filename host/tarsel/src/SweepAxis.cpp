// SPDX-License-Identifier: BSD-3-Clause
#include "SweepAxis.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarsel {

namespace {

using ClipperLib::IntPoint;
using ClipperLib::Path;
using ClipperLib::Paths;

/// The extent of edges on one axis.
class Extent {
public:
    void add(double from, double to) {
        m_low = std::min({m_low, from, to});
        m_high = std::max({m_high, from, to});
        m_sum += std::fabs(to - from);
    }
    /// How many edges lie over a place of the axis on average.
    double meanCover() const { return m_high > m_low ? m_sum / (m_high - m_low) : 0; }

private:
    double m_low = HUGE_VAL;
    double m_high = -HUGE_VAL;
    double m_sum = 0;
};

void exchangeAxes(Path& path) {
    for (IntPoint& point : path) {
        std::swap(point.X, point.Y);
    }
}

} // namespace

bool isQuickerAlongX(const Paths& subject, const Paths& clip) {
    constexpr double clearly = 4;
    Extent x;
    Extent y;
    for (const Paths* paths : {&subject, &clip}) {
        for (const Path& path : *paths) {
            IntPoint from = path.back();
            for (const IntPoint& to : path) {
                x.add(static_cast<double>(from.X), static_cast<double>(to.X));
                y.add(static_cast<double>(from.Y), static_cast<double>(to.Y));
                from = to;
            }
        }
    }
    return clearly * x.meanCover() < y.meanCover();
}

void exchangeAxes(Paths& paths) {
    for (Path& path : paths) {
        exchangeAxes(path);
    }
}

void exchangeAxes(std::vector<Contour>& contours) {
    for (Contour& contour : contours) {
        exchangeAxes(contour.path);
        std::reverse(contour.path.begin(), contour.path.end());
    }
}

} // namespace tarsel
