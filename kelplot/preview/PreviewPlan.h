// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>

#include "cli/job/PlotPlan.h"

namespace kelplot {

// Each throws `UsageError` and `SettingsError` as `planFor` does.

/// The plan of a page that is looked at: no file comes of it.
std::shared_ptr<const PlotPlan> planToShow(const Request& request);

/// The plan of a file for a page of a drawing. Its format is what its name ends in; whoever chose the name was asked
/// whether it may be replaced.
///
/// @param layout  as the page is called in a request
std::shared_ptr<const PlotPlan> planToSave(const Request& request, const QString& input, const QString& layout,
                                           const QString& file);

/// The plan of pages for the printer that the request names.
std::shared_ptr<const PlotPlan> planToPrint(const Request& request, const QString& input, const QString& layout);

} // namespace kelplot
