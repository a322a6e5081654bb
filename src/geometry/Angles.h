// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace KelDriver::Internal {

/// Angles in radians.
constexpr double quarterTurn = 1.5707963267948966;
constexpr double halfTurn = 3.141592653589793;
constexpr double fullTurn = 6.283185307179586;

} // namespace KelDriver::Internal
