// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <iosfwd>

#include "cli/console/Console.h"
#include "cli/console/ExitStatus.h"
#include "settings/PaperTable.h"

namespace kelplot {

/// Prints one paper per line: the name, the size, the margins, and whether it is the user's own, separated by tabs.
/// Sizes and margins are in the form that the options take.
void printPapers(const PaperTable& table, std::ostream& stream);

/// Prints the papers as a JSON array of objects; lengths are millimetres.
void printPapersAsJson(const PaperTable& table, std::ostream& stream);

/// Prints the papers of all files that can be read, and reports those that cannot.
ExitStatus listPapers(bool json, std::ostream& stream, Console& console);

} // namespace kelplot
