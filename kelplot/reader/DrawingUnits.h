// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

namespace kelplot {

/// Millimetres in a drawing's unit, from the two header variables that tell it.
///
/// @param insertUnits  number of the unit, 0 when the drawing names none
/// @param metric       what a drawing without a named unit is taken for: millimetres or inches
double millimetresPerDrawingUnit(int insertUnits, bool metric);

} // namespace kelplot
