// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <optional>
#include <string>

namespace KelDriver::Internal {

/// All bytes of a file; nothing when it cannot be opened or cannot be read to its end.
std::optional<std::string> readTextFile(const std::string& path);

} // namespace KelDriver::Internal
