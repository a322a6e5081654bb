// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

namespace kelplot {

/// The entries that make a renderer draw a line type with a pen of whole width `penWidth` and flat ends;
/// empty for a continuous line, also where the pattern is too fine to show.
///
/// @param pattern      positive a dash, negative a gap, 0 a dot
/// @param scale        device units in a unit of the pattern
/// @param finestPeriod device units; patterns that repeat within less are drawn continuous
std::vector<double> dashEntries(const std::vector<double>& pattern, double scale, int penWidth, double finestPeriod);

} // namespace kelplot
