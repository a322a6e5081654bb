// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>
#include <string_view>
#include <sys/stat.h>

#include "settings/Descriptor.h"

namespace KelDriver::Internal {

/// A file in the making that is going to take the place of another in its folder.
///
/// Until it is complete it has no name, and for a moment a hidden one; where the file system knows no nameless files it
/// has that name from the start. A kill can leave one such file in a folder: the next successor there removes it. A
/// successor that does not take its place removes itself.
class Successor {
public:
    /// @param folder  with a slash at its end
    Successor(std::string folder, mode_t mode);
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;
    ~Successor();

    bool isOpen() const { return m_file.isOpen(); }
    int number() const { return m_file.number(); }

    /// Gives it the owner and the mode of the old file, which has no access list. False when the process may not do
    /// that.
    bool takeRightsOf(const struct stat& old);
    /// Closes the file and gives it the name, in one step for whoever looks. On failure `errno` tells why.
    bool takePlaceOf(const std::string& path);

private:
    std::string m_folder;
    std::string m_name; ///< empty while it has none
    Descriptor m_file;
    Descriptor m_lock; ///< the same file once more: others see by the lock on it that it is in use
};

/// Writes all bytes; false on the first failure.
bool writeAll(int file, std::string_view bytes);

} // namespace KelDriver::Internal
