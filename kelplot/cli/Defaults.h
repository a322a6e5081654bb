// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <vector>

#include "cli/Options.h"

namespace kelplot {

/// An option of which a file of settings may state the value.
struct Preset {
    QString name;
    void (*apply)(Options& options, const QString& value); ///< throws `UsageError`
};

/// Takes what the file kelplot.ini of a folder states, if there is one: options, pens and fonts. A default that is
/// none of `presets` is left with a warning. Throws `SettingsError` for a file at fault.
void applyDefaults(const QString& folder, const std::vector<Preset>& presets, Options& options);

} // namespace kelplot
