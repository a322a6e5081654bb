// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include "cli/console/Console.h"
#include "cli/console/ExitStatus.h"
#include "cli/job/DrawingInput.h"
#include "cli/job/PlotPlan.h"
#include "cli/job/PlotRecord.h"
#include "cli/job/PrintSpool.h"
#include "print/PrintJob.h"

namespace kelplot {

/// Does a piece of work on a file and reports what goes wrong with it, also as `error`.
ExitStatus guarded(const QString& name, Console& console, QString& error, const std::function<void()>& work);

/// Plots all drawings of a file, or none: an incomplete document is not what was asked for.
///
/// @param record  receives what became of each drawing
ExitStatus plotPages(const PlannedFile& file, const PlotPlan& plan, const DrawingSource& source, Console& console,
                     FileRecord& record);

/// Sends the pages in a spool to the plan's printer. Throws `PrintError`.
///
/// @param record  of the pages
/// @return the job, which is in the queue
std::unique_ptr<PrintJob> startPrinting(const PlannedFile& file, const PlotPlan& plan, PrintSpool& spool,
                                        const FileRecord& record);

/// Plots or prints all files of a plan, each of which is complete or does not come to be, and returns the worst status.
///
/// @param source   of the drawings
/// @param tell     hears of each file or print job that is complete
/// @param records  receives what became of each file
ExitStatus plotAll(const PlotPlan& plan, const DrawingSource& source, Console& console,
                   const std::function<void(const QString&)>& tell, std::vector<FileRecord>& records);

} // namespace kelplot
