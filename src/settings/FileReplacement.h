// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>
#include <string_view>

namespace KelDriver::Internal {

/// Gives a file new content, creating it where it is missing. The old content stands until the new one is complete.
///
/// The bytes go to a new file beside the old one, which gets the owner and the mode of the old one and then its name:
/// whoever looks, even after a kill, finds the old content or the new one. Links to the file keep leading to it. What
/// is lost is the inode, and it is lost on purpose: bytes written over others can be cut short by a kill.
///
/// A file that would lose more than its inode is still written over: one of several names or with access lists,
/// one whose owner cannot be given to another file, one in a folder that takes no new file. It grows first and is cut
/// last, so that a full device leaves the old content; only a kill in the middle can leave a mixture. Devices and pipes
/// are just written to.
///
/// The system decides when the data reach the disk: this protects against a kill, not against a loss of power.
///
/// @return false when the file does not hold the bytes. It is as it was then, unless a device failed while a file was
///         written over in its place, or it is a device itself
[[nodiscard]] bool writeFile(const std::string& path, std::string_view bytes);

/// Creates an empty file where there is none. Failures show when the file is read.
void createFile(const std::string& path);

} // namespace KelDriver::Internal
