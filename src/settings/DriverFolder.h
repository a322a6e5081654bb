// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

/// The folder "Drivers" beside an executable: `executable` without what follows its last slash, and "/Drivers".
///
/// Both are kept to the 259 bytes that hosts reserve for a path; what is longer is cut off.
std::string driverFolderBeside(const std::string& executable);

/// Widens bytes in the current locale; the empty text when the locale cannot read them.
std::wstring widenPath(const std::string& path);
