// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "cli/options/Request.h"

namespace kelplot {

/// Reads a command line, the program's name first, over the defaults of the settings files. Throws `UsageError`, or
/// `SettingsError` when the settings that the plot needs are faulty.
Request requestFromArguments(const QStringList& arguments);

} // namespace kelplot
