// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/PlotPlan.h"
#include "cli/PlotRecord.h"

namespace kelplot {

/// Does a piece of work on a file and reports what goes wrong with it, also as `error`.
ExitStatus guarded(const QString& name, Console& console, QString& error, const std::function<void()>& work);

/// Plots or prints all files of a plan, each of which is complete or does not come to be, and returns the worst status.
///
/// @param tell     hears of each file or print job that is complete
/// @param records  receives what became of each file
ExitStatus plotAll(const PlotPlan& plan, Console& console, const std::function<void(const QString&)>& tell,
                   std::vector<FileRecord>& records);

} // namespace kelplot
