// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "cli/Request.h"

namespace kelplot {

/// Whether the settings may state an option's value.
enum class Default { none, inSettings };

/// An option. It is read, taken from the settings, and documented by what stands here.
struct OptionRow {
    const char* shortName; ///< may be null
    const char* name;
    const char* valueName; ///< null: it takes no value
    const char* description;
    void (*apply)(Request& request, const QString& value); ///< throws `UsageError`
    Default preset = Default::none;
};

/// All options. Those that come later win over those before.
const std::vector<OptionRow>& optionRows();

/// Puts a value where it belongs. Throws `UsageError` with the option's name.
void applyOption(const OptionRow& row, const QString& value, Request& request);

} // namespace kelplot
