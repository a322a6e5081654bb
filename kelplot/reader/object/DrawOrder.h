// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "drawing/Entity.h"
#include "reader/object/DrawingObjects.h"

namespace kelplot {

/// Puts entities into the order of their handles, or of those that `handles` gives them for this. An entity without a
/// handle stays with the one before it.
void sortByHandles(std::vector<Entity>& entities, const SortHandles& handles);

/// Exchanges the viewports among entities so that those that lie below others come first.
void stackViewports(std::vector<Entity>& entities);

} // namespace kelplot
