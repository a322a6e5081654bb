// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QStringList>

#include "settings/PenTable.h"

namespace kelplot {

/// Tells whether a file of settings holds a pen table. Throws `SettingsError` when the file is malformed.
bool holdsPens(const QString& path);

/// Reads the section "Pens" of files: "NUMBER=WIDTH,COLOUR,SCREENING", or "other" for the numbers that none of them
/// lists. Values that a line leaves out at its end are taken from the drawing. Of several files, the last to state a
/// pen counts. Throws `SettingsError`, which names the line.
PenTable penTableFrom(const QStringList& paths);

} // namespace kelplot
