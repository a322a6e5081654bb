// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QStringList>

#include "settings/PenTable.h"

namespace kelplot {

/// Tells whether a file of settings holds a pen table. Throws `SettingsError` when it is not sound.
bool holdsPens(const QString& path);

/// Reads the section "Pens" of files: "NUMBER=WIDTH,COLOUR,SCREENING", or "other" for the numbers that none of them
/// lists. What is left away at the end of a line is left to the drawing. Of several files, the last to state a pen
/// counts. Throws `SettingsError`, which names the line.
PenTable penTableFrom(const QStringList& paths);

} // namespace kelplot
