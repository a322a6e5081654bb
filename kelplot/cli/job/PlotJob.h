// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <stdexcept>

#include "cli/console/Console.h"
#include "cli/job/DrawingInput.h"
#include "cli/job/PageSequence.h"
#include "cli/job/PlotPlan.h"
#include "cli/job/PlotRecord.h"

namespace kelplot {

/// A warning about a drawing that the caller wants taken for a failure; the text names the file.
class StrictFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Plots one drawing as the next pages of a file, and records what became of it. Throws `ReadError`, `UsageError`,
/// `OutputError` or `StrictFailure`.
///
/// @param source  of the drawing
void plotDrawing(const QString& input, const PlannedFile& file, const PlotPlan& plan, const DrawingSource& source,
                 PageSequence& pages, Console& console, DrawingRecord& record);

} // namespace kelplot
