// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "drawing/Entity.h"
#include "geometry/LoopIndex.h"
#include "geometry/PlanMap.h"

namespace kelplot {

/// A family of parallel lines of a hatch's pattern, in device units.
struct LineFamily {
    Vec2 along;                 ///< of length 1
    Vec2 base;                  ///< where the dashes of line 0 begin
    double spacing = 0.0;       ///< to the left of `along`, from a line to the next; above 0
    double shift = 0.0;         ///< along the lines, from where the dashes of one begin to where those of the next do
    std::vector<double> dashes; ///< positive a dash, negative a gap, 0 a dot; empty: continuous
    double period = 0.0;        ///< of the dashes; 0: continuous

    /// How much of a line is drawn, from 0 to 1, where a dot is as long as the pen is wide.
    double density(double penWidth) const;
};

/// A family as it looks through `map`; nothing where its lines have no distance, no direction or no finite numbers.
std::optional<LineFamily> familyOf(const PatternLine& line, const PlanMap& map);

/// What of one line of a family lies in an area: from `start` to `end` along it, from where line 0 begins.
struct LineStretch {
    int64_t number = 0; ///< of the line
    double start = 0.0;
    double end = 0.0;
};

/// The stretches of a family's lines in the area of `loops` by the even-odd rule, less those that are always holes.
/// Nothing when the lines would cross the loops more than `most` times.
std::optional<std::vector<LineStretch>> stretchesIn(const std::vector<AreaLoop>& loops, const LineFamily& family,
                                                    double most);

/// How many dashes and dots the stretches hold, roughly; a stretch counts for at least one.
double dashCount(const std::vector<LineStretch>& stretches, const LineFamily& family);

/// Calls `draw` with the ends of each dash, cut where its stretch ends; the two are one for a dot.
void forEachDash(const std::vector<LineStretch>& stretches, const LineFamily& family,
                 const std::function<void(Vec2 from, Vec2 to)>& draw);

} // namespace kelplot
