// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

namespace kelplot {

/// Bits of code 70 that flat and old polylines share.
constexpr int polylineClosed = 1;
constexpr int polylineContinuousPattern = 128;

} // namespace kelplot
