// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/Entity.h"

namespace kelplot {

/// The name of the block of the arrow head that dimensions have where nothing else is said.
constexpr std::string_view usualArrowHead = "_ClosedFilled";

/// Whether a line goes on through the arrow head of a block to its point.
bool lineReachesTip(const std::string& block);

/// Whether the arrow head of a block is a stroke across the line's end.
bool isTick(const std::string& block);

/// What the block of a common arrow head holds, whatever the case of its name; nothing for other names. It points along
/// x to the origin and is 1 long.
std::optional<std::vector<Entity>> arrowHead(const std::string& block);

} // namespace kelplot
