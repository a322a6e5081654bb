// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QStringList>

#include "cli/Options.h"

namespace kelplot {

/// The output file of each input, in their order. Throws `UsageError` where two inputs would share one, or
/// where an output would replace an input.
QStringList outputPaths(const Options& options);

} // namespace kelplot
