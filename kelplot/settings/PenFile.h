#pragma once

#include <QString>

#include "plot/PenTable.h"

namespace kelplot {

/// Tells whether a sound file of settings holds a pen table.
bool holdsPens(const QString& path);

/// Reads the section "Pens" of a file: "NUMBER=WIDTH,COLOUR,SCREENING", or "other" for the numbers that are not listed.
/// What is left away at the end of a line is left to the drawing. Throws `SettingsError`, which names the line.
PenTable penTableFrom(const QString& path);

} // namespace kelplot
