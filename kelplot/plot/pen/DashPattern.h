// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

namespace kelplot {

/// A dash and the gap after it, in device units.
struct DashStroke {
    double dash = 0.0;
    double gap = 0.0;
};

/// What a line type comes to on a device.
struct DashPattern {
    std::vector<DashStroke> strokes; ///< repeated along a line; empty: continuous
    double period = 0.0;             ///< the length of all strokes
    double lead = 0.0;               ///< from where the line type's own pattern begins to the first dash
    bool spreads = false;            ///< gaps are made to suit the length of a line; else its ends are

    bool isContinuous() const { return strokes.empty(); }
};

/// How a pattern is to be drawn.
struct DashRules {
    double scale = 1.0;        ///< device units in a unit of the pattern
    double penWidth = 1.0;     ///< a dash that is shorter becomes a dot, as long as the pen is wide
    double finestPeriod = 0.0; ///< device units; patterns that repeat within less are continuous
    bool fits = false;         ///< gaps are made to suit the length of a line
};

/// @param pattern  positive a dash, negative a gap, 0 a dot
DashPattern dashPatternOf(const std::vector<double>& pattern, const DashRules& rules);

/// The entries that make a renderer draw strokes with a pen of whole width `penWidth` and flat ends, over and over from
/// the start of a line.
std::vector<double> dashEntries(const std::vector<DashStroke>& strokes, int penWidth);

} // namespace kelplot
