// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>
#include <string_view>
#include <sys/stat.h>

#include "settings/Descriptor.h"

namespace KelDriver::Internal {

/// A file in the making that is going to take the place of another in its folder.
///
/// It has no name before it is complete, so that a kill until then leaves nothing behind. Where the file system knows
/// no nameless files it has a hidden name from the start. It is removed again when it does not get as far.
class Successor {
public:
    /// @param folder  with a slash at its end
    Successor(const std::string& folder, mode_t mode);
    Successor(const Successor&) = delete;
    Successor& operator=(const Successor&) = delete;
    ~Successor();

    bool isOpen() const { return m_file.isOpen(); }
    int number() const { return m_file.number(); }

    /// False when the process may not give the file away.
    bool takeOwnerAndMode(const struct stat& old);
    /// Closes the file and gives it the name, in one step for whoever looks. On failure `errno` tells why.
    bool takePlaceOf(const std::string& path);

private:
    std::string m_name;
    Descriptor m_file;
    bool m_isNamed = false;
};

/// Writes all bytes; false on the first failure.
bool writeAll(int file, std::string_view bytes);

} // namespace KelDriver::Internal
