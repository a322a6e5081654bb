// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "RegionContours.h"
#include "Vector.h"

namespace vnbase {

/// Coordinates in which a region reaches from about -1 to 1 both ways, whatever its place, size and proportions.
///
/// What clipping asks (crossings, sides, parities) does not change under such a map. Each axis is shifted to the
/// region's middle and scaled by a power of two, so that only the shift can lose precision.
class Frame {
public:
    /// @param reach      where the region is; not empty
    /// @param magnitude  the largest absolute coordinate in use, vertices of the polyline included
    Frame(const Box& reach, double magnitude);

    /// @param p  finite; a point too far to be told from infinity moves closer
    Vec toFrame(const HT_Double_Point& p) const { return {m_x.toFrame(p.x), m_y.toFrame(p.y)}; }
    /// Where the region is, in the frame.
    const Box& reach() const { return m_reach; }
    /// Points closer than this count as the same: a few units in the last place of the input.
    double tolerance() const { return m_tolerance; }

private:
    struct Axis {
        Axis(double low, double high);
        double toFrame(double value) const;

        double halfCentre;
        double doubleScale = 1.0;
    };

    Axis m_x;
    Axis m_y;
    Box m_reach;
    double m_tolerance;
};

} // namespace vnbase
