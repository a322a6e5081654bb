// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <vector>

#include <clipper.hpp>

#include "Contours.h"

namespace tarsel {

/// Whether the clipper, which goes through its operands along y, meets far fewer edges at a time along x.
///
/// Its time grows with the number of edges that lie side by side: for a long row of teeth along x it is quadratic in
/// the length, for one along y little more than linear.
bool isQuickerAlongX(const ClipperLib::Paths& subject, const ClipperLib::Paths& clip);

/// Exchanges x and y.
void exchangeAxes(ClipperLib::Paths& paths);

/// Exchanges x and y of a result, whose contours turn the same way as before.
void exchangeAxes(std::vector<Contour>& contours);

} // namespace tarsel
