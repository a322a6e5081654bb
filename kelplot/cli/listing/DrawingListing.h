// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <iosfwd>

#include "cli/console/Console.h"

namespace kelplot {

/// Prints the layers of a drawing with their state. Throws `ReadError`.
void listLayers(const QString& input, std::ostream& stream, Console& console);

/// Prints the names of what can be plotted of a drawing: model space and its layouts. Throws `ReadError`.
void listLayouts(const QString& input, std::ostream& stream, Console& console);

} // namespace kelplot
