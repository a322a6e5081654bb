// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

#include "cli/options/Request.h"

namespace kelplot {

/// Applies the file kelplot.ini of a folder, if there is one: options, pens and fonts. A key that is not an option, or
/// is one that the settings may not state, is skipped with a warning. Throws `SettingsError` for a faulty file.
void applyDefaults(const QString& folder, Request& request);

} // namespace kelplot
