// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "reader/RecordDecoder.h"

namespace kelplot {

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
