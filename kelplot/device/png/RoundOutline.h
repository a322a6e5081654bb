// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPolygonF>

namespace kelplot {

/// The area that a round pen covers along a line, as one polygon to be filled by the winding rule.
///
/// Curves come as lines with many slight bends. A general stroker works out an arc for each of them; here a bend that
/// nobody could tell from its chord is one.
///
/// @param line  points in pixels, at least one; a line that ends at its start needs no mark of that
/// @param radius  half the pen's width in pixels, more than 0
QPolygonF roundOutline(const QPolygonF& line, double radius);

} // namespace kelplot
