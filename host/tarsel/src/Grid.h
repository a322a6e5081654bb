// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <limits>

#include "gpc.h"

namespace tarsel {

/// The axis-parallel box around the points that were added to it.
class Box {
public:
    void add(const gpc_vertex& point);
    const gpc_vertex& low() const { return m_low; }
    const gpc_vertex& high() const { return m_high; }

private:
    static constexpr double infinity = std::numeric_limits<double>::infinity();

    gpc_vertex m_low{infinity, infinity};
    gpc_vertex m_high{-infinity, -infinity};
};

/// A centred integer grid over a box, fine enough for any drawing and coarse enough for exact arithmetic.
///
/// The larger half-extent of the box takes 50 bits. More bits make crossings of near-coincident edges come out
/// wrong; far fewer lose small shapes next to large ones. The step is a power of two, so that scaling is exact.
class Grid {
public:
    /// @param box  finite, with at least one point
    explicit Grid(const Box& box);

    int64_t columnOf(double x) const { return nearestStep(x, m_centre.x); }
    int64_t rowOf(double y) const { return nearestStep(y, m_centre.y); }
    double xOf(int64_t column) const { return valueOf(column, m_centre.x); }
    double yOf(int64_t row) const { return valueOf(row, m_centre.y); }

private:
    /// A power of two as a product: the scale of a very small or very large box does not fit into one double.
    struct Power {
        explicit Power(int exponent);
        double times(double value) const { return value * first * second; }

        double first;
        double second;
    };

    int64_t nearestStep(double value, double centre) const;
    double valueOf(int64_t step, double centre) const;

    gpc_vertex m_centre{0, 0};
    Power m_scale{0};
    Power m_step{0};
};

} // namespace tarsel
