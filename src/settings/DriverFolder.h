// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

namespace KelDriver::Internal {

/// The folder "Drivers" beside an executable: `executable` without what follows its last slash, and "/Drivers".
///
/// Both are cut off after 259 bytes, which is part of the interface.
std::string driverFolderBeside(const std::string& executable);

} // namespace KelDriver::Internal
