// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace KelDriver::Internal {

/// Lengths and angles closer than this count as equal wherever this library compares geometry.
constexpr double geometricTolerance = 1e-10;

} // namespace KelDriver::Internal
