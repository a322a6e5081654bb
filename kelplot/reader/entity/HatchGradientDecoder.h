// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>

#include "drawing/Entity.h"
#include "reader/groups/GroupSource.h"

namespace kelplot {

/// Builds the gradient of a hatch from its groups.
class HatchGradientDecoder {
public:
    /// Takes a group of the gradient, which the code 450 begins.
    void take(const Group& group);

    /// The gradient, unless the hatch has none.
    std::optional<HatchGradient> finish() const;

private:
    void addColour(const Colour& colour);

    int m_lastCode = 0;
    bool m_isGradient = false;
    bool m_hasOneColour = false;
    double m_tint = 0.0; ///< of the second colour, where there is one only
    size_t m_colours = 0;
    HatchGradient m_gradient;
};

} // namespace kelplot
