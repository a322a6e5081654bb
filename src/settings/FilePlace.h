// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

namespace KelDriver::Internal {

/// The path of the file that a path leads to, free of links; the path itself when it leads nowhere.
std::string resolvedPath(const std::string& path);

/// The folder that a path's last name is in, with a slash at its end.
std::string folderOf(const std::string& path);

} // namespace KelDriver::Internal
