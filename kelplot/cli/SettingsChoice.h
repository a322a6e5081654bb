// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "cli/Options.h"

namespace kelplot {

/// Turns the paper that was asked for into a sheet with margins, from the paper files where it is a name. Throws
/// `UsageError` for a name or a size that cannot be had, `SettingsError` for a paper file at fault.
void choosePaper(Options& options);

/// Reads the pens that were asked for. Throws `SettingsError`.
void choosePens(Options& options);

/// Keeps the paper that was asked for in the user's own paper file, and returns what to tell of it.
/// Throws `SettingsError`.
QString savePaper(const Options& options, const PaperSize& record);

} // namespace kelplot
