// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

namespace kelplot {

/// Runs the program that shows pages and returns its exit status.
int runPreview(int argc, char** argv);

} // namespace kelplot
