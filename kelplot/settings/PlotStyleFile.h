// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "settings/PenTable.h"

namespace kelplot {

/// Reads a table of plot styles, by colours (CTB) or by names (STB). Throws `SettingsError` where it is damaged or is
/// no such table.
PenTable plotStylesFrom(const QString& path);

} // namespace kelplot
