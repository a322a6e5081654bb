// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

namespace kelplot {

/// The folder with the settings that belong to the program: the folder "Drivers" beside it, or where there is none the
/// one of its installation, which nothing is ever written to. Throws `SettingsError` when the system cannot say where
/// the program is.
QString driverFolder();

/// The folder with the user's own settings. It need not exist.
QString ownFolder();

/// The path for the binary copy of a file in `driverFolder`: beside it where the program may write there, else in the
/// user's caches, where each state of the file has a copy of its own. The folder need not exist. Empty when there is no
/// place for a copy.
QString driverCacheOf(const QString& file);

} // namespace kelplot
