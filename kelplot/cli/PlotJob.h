// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <iosfwd>
#include <stdexcept>

#include "cli/Console.h"
#include "cli/PlotPlan.h"

namespace kelplot {

/// A warning about a drawing that the caller wants taken for a failure; the text names the file.
class StrictFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Plots one drawing to one file. Throws `ReadError`, `OutputError` or `StrictFailure`; then there is no file.
void plotDrawing(const QString& input, const QString& output, const PlotPlan& plan, Console& console);

/// Prints the names by which the spaces of a drawing are asked for, a line each. Throws `ReadError`.
void listLayouts(const QString& input, std::ostream& stream, Console& console);

/// Prints the layers of a drawing, a line each: the name, a tab and the state. Throws `ReadError`.
void listLayers(const QString& input, std::ostream& stream, Console& console);

} // namespace kelplot
