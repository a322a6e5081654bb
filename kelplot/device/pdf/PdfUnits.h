// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

namespace kelplot {

// A header of its own, for the sizes of pages and for the map to them.

/// The units in which PDF counts, in a millimetre.
constexpr double pointsPerMillimetre = 72.0 / 25.4;

} // namespace kelplot
