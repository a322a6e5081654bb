// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Entity.h"
#include "reader/RecordDecoder.h"

namespace kelplot {

/// Makes `spline` one that can be evaluated, whatever the file says: afterwards it has fit points only,
/// or control points with one positive weight each or none, and as many rising knots as its degree asks
/// for. Where the knots are unusable, the curve gets evenly spaced ones and passes through its end points.
/// False where nothing is left to draw.
bool completeSpline(Spline& spline);

/// Splines with control points, fit points or both.
class SplineDecoder : public RecordDecoder {
public:
    void begin(std::string_view type) override;
    void take(const Group& group) override;
    void end(const RecordHeader& header, DrawingBuilder& builder) override;

private:
    Spline m_spline;
};

} // namespace kelplot
