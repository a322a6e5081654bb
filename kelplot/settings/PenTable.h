// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <optional>

#include "drawing/Entity.h"
#include "keldriver/Types.h"

namespace kelplot {

constexpr int fullInk = 100;

/// How a pen table plots the entities of one colour number.
struct PenRule {
    std::optional<double> width; ///< millimetres; none: the drawing's line weight
    std::optional<HT_Color> ink; ///< none: the drawing's colour
    int screening = fullInk;     ///< per cent of the ink that reaches the paper
};

/// The rules for the colour numbers 1 to 255. True colours have no number and stay as they are.
class PenTable {
public:
    static constexpr int lastNumber = 255;

    void set(int number, const PenRule& rule) { m_rules[static_cast<size_t>(number)] = rule; }
    const PenRule& ruleFor(const Colour& colour) const {
        const bool numbered = colour.kind == Colour::Kind::index && colour.value < m_rules.size();
        return m_rules[numbered ? colour.value : 0];
    }

private:
    std::array<PenRule, lastNumber + 1> m_rules; ///< entry 0 leaves everything to the drawing
};

} // namespace kelplot
