// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <optional>
#include <string>

/// All bytes of a file; nothing when it cannot be opened. Of a file that cannot be read on, what came before.
std::optional<std::string> readTextFile(const std::string& path);
