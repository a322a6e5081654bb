// SPDX-License-Identifier: BSD-3-Clause
#include "Frame.h"

namespace vnbase {

namespace {

constexpr double farAway = 0x1p500; // squares of it are finite
constexpr int largestExponent = 1000;

constexpr double finestTolerance = 0x1p-40;
constexpr double coarsestTolerance = 0x1p-24;
constexpr double relativeTolerance = 0x1p-50;

} // namespace

// Halves throughout, as the difference of two finite doubles need not be finite.
Frame::Axis::Axis(double low, double high) : halfCentre(low / 4.0 + high / 4.0) {
    int exponent = 0;
    std::frexp(high / 2.0 - low / 2.0, &exponent);
    doubleScale = std::ldexp(1.0, std::clamp(1 - exponent, -largestExponent, largestExponent));
}

double Frame::Axis::toFrame(double value) const {
    return std::clamp((value * 0.5 - halfCentre) * doubleScale, -farAway, farAway);
}

Frame::Frame(const Box& reach, double magnitude)
    : m_x(reach.low.x, reach.high.x), m_y(reach.low.y, reach.high.y), m_reach{toFrame({reach.low.x, reach.low.y}),
                                                                              toFrame({reach.high.x, reach.high.y})},
      m_tolerance(std::clamp(magnitude * 0.5 * std::max(m_x.doubleScale, m_y.doubleScale) * relativeTolerance,
                             finestTolerance, coarsestTolerance)) {
}

} // namespace vnbase
