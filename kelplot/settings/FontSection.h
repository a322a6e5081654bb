// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

#include "settings/FontTable.h"

namespace kelplot {

/// Adds the section "Fonts" of a file of settings, if it has one, to a table: "NAME=FAMILY,FAMILY..." with the words
/// bold, italic and symbols among the families, and "FAMILY*1.1" for one that is set wider by a tenth; "other" is for
/// the fonts that are not listed. Entries that the table has already are replaced. Throws `SettingsError` for a faulty
/// file.
void addFonts(const QString& path, FontTable& table);

} // namespace kelplot
