#pragma once

#include "cli/Options.h"

namespace kelplot {

/// Turns the paper that was asked for into a sheet with margins, from the paper files where it is a name. Throws
/// `UsageError` for a name or a size that cannot be had, `SettingsError` for a paper file at fault.
void choosePaper(Options& options);

/// Reads the pen table that was asked for, in place of the one of the defaults. Throws `SettingsError`.
void choosePens(Options& options);

/// Keeps the size that was asked for under its name, in the user's own paper file, and returns what to tell of it.
/// Throws `SettingsError`.
QString savePaper(const Options& options);

} // namespace kelplot
