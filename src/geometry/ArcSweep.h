// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace KelDriver::Internal {

/// An arc becomes at most this many Bezier curves, which take up one GiB.
constexpr double mostCurves = 16777216.0; // 2^24

/// Backward sweeps as long as this still go forward turn by turn.
constexpr double longestBackwardSweep = 1e8;

/// The angle that an arc covers: `sweep`, the end less the start, plus as many turns as make it positive.
///
/// Turns are added one by one, each sum rounded, which is part of the interface. Sweeps beyond the limits above are
/// first cut to their exact remainder: forward ones end between one and two turns, backward ones below about one turn.
/// NaN where the sweep is infinite or undefined.
double positiveSweep(double sweep);

/// How many Bezier curves of a quarter turn at most cover a positive sweep; a whole number.
double curveCountFor(double positiveSweep);

} // namespace KelDriver::Internal
