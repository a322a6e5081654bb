// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "cli/options/Request.h"

namespace kelplot {

/// Whether the settings may state an option's value.
enum class Default { none, inSettings };

/// An option: everything needed to parse it, to take it from the settings and to document it.
struct OptionRow {
    const char* shortName; ///< may be null
    const char* name;
    const char* valueName; ///< null: it takes no value
    const char* description;
    void (*apply)(Request& request, const QString& value); ///< throws `UsageError`
    Default preset = Default::none;
    const char* choices = nullptr; ///< separated by blanks; null: the value is free, or a FILE or DIR
};

/// All options, in the order in which they are applied: a later one overrides an earlier one.
const std::vector<OptionRow>& optionRows();

/// Applies an option to a request. Throws `UsageError` with the option's name.
void applyOption(const OptionRow& row, const QString& value, Request& request);

} // namespace kelplot
