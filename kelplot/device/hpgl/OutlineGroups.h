// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPoint>
#include <vector>

namespace kelplot {

using PlotterOutline = std::vector<QPoint>; ///< at least one point

/// Parts outlines into groups that lie beside one another, such as the letters of a text: they can be filled one by
/// one, which takes less of a plotter's memory than all together.
std::vector<std::vector<PlotterOutline>> separateGroups(std::vector<PlotterOutline> outlines);

} // namespace kelplot
