// SPDX-License-Identifier: BSD-3-Clause
#include "settings/FilePlace.h"

#include <cstdlib>

#include "port/MallocPtr.h"

namespace KelDriver::Internal {

std::string resolvedPath(const std::string& path) {
    const MallocPtr<char> resolved(realpath(path.c_str(), nullptr));
    return resolved ? std::string(resolved.get()) : path;
}

std::string folderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

} // namespace KelDriver::Internal
