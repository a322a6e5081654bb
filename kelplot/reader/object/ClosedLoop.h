// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>

#include "drawing/Entity.h"

namespace kelplot {

/// The border that a closed curve makes, in the coordinates of its space; nothing for entities that are none.
std::optional<HatchLoop> closedLoopOf(const Entity& entity);

} // namespace kelplot
