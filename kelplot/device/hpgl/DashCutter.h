// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPen>
#include <QPointF>
#include <functional>
#include <vector>

namespace kelplot {

/// Hands on the dashes of a polyline one by one, for plotters whose own line types differ; a continuous line is one.
///
/// @param pen  its width and its dashes, in the units of the points
void forEachDash(const std::vector<QPointF>& line, const QPen& pen,
                 const std::function<void(const std::vector<QPointF>&)>& draw);

} // namespace kelplot
