// SPDX-License-Identifier: BSD-3-Clause
#pragma once

/// Runs the benchmarks that `registerAll` registers once there is a Qt application without a screen.
///
/// @return the exit status of the program
int runGuiBenchmarks(int argc, char** argv, void (*registerAll)());
