// SPDX-License-Identifier: BSD-3-Clause
#include "settings/DriverFolder.h"

#include <cstdlib>

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

std::wstring widenPath(const std::string& path) {
    const size_t length = std::mbstowcs(nullptr, path.c_str(), 0);
    if (length == static_cast<size_t>(-1)) {
        return {};
    }
    std::wstring wide(length, L'\0');
    std::mbstowcs(wide.data(), path.c_str(), length);
    return wide;
}

} // namespace KelDriver::Internal
