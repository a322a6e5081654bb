// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

namespace kelplot {

/// Runs the program and returns its exit status.
int runKelplot(int argc, char** argv);

} // namespace kelplot
