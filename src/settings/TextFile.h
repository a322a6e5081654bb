// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <optional>
#include <string>

/// All bytes of a file; nothing when it cannot be opened. Of a file that cannot be read on, what came before.
std::optional<std::string> readTextFile(const std::string& path);

/// Replaces the content of a file in one piece. A failure is not reported: none of the callers may report one.
void writeTextFile(const std::string& path, const std::string& text);
