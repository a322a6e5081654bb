// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

#include "cli/Request.h"

namespace kelplot {

/// Takes what the file kelplot.ini of a folder states, if there is one: options, pens and fonts. A default that is no
/// option, or one that the settings may not state, is left with a warning. Throws `SettingsError` for a file at fault.
void applyDefaults(const QString& folder, Request& request);

} // namespace kelplot
