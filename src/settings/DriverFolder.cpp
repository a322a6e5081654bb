// SPDX-License-Identifier: BSD-3-Clause
#include "settings/DriverFolder.h"

namespace KelDriver::Internal {

namespace {

constexpr size_t longestPath = 259;

} // namespace

std::string driverFolderBeside(const std::string& executable) {
    std::string folder = executable.substr(0, longestPath);
    const size_t slash = folder.rfind('/');
    if (slash != std::string::npos) {
        folder.resize(slash);
    }
    folder += "/Drivers";
    return folder.substr(0, longestPath);
}

} // namespace KelDriver::Internal
