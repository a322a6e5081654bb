// SPDX-License-Identifier: BSD-3-Clause
#include "Grid.h"

#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr int gridBits = 50;

} // namespace

void Box::add(const gpc_vertex& point) {
    m_low = {std::min(m_low.x, point.x), std::min(m_low.y, point.y)};
    m_high = {std::max(m_high.x, point.x), std::max(m_high.y, point.y)};
}

Grid::Power::Power(int exponent)
    : first(std::ldexp(1.0, exponent / 2)), second(std::ldexp(1.0, exponent - exponent / 2)) {
}

Grid::Grid(const Box& box) {
    const auto [lowX, lowY] = box.low();
    const auto [highX, highY] = box.high();
    // Halved before they are added: the sum of two large coordinates may overflow.
    m_centre = {lowX / 2 + highX / 2, lowY / 2 + highY / 2};
    const double halfExtent = std::max(highX / 2 - lowX / 2, highY / 2 - lowY / 2);
    if (halfExtent > 0) {
        const int scaleBits = gridBits - 1 - std::ilogb(halfExtent);
        m_scale = Power(scaleBits);
        m_step = Power(-scaleBits);
    }
}

int64_t Grid::nearestStep(double value, double centre) const {
    return std::llrint(m_scale.times(value - centre));
}

double Grid::valueOf(int64_t step, double centre) const {
    return centre + m_step.times(static_cast<double>(step));
}

} // namespace tarsel
