// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "drawing/Entity.h"

namespace kelplot {

/// An entity's geometry as a test expects it, such as "circle 1,2,0 r 5 extruded 0,0,-1"; angles are in degrees.
std::string textOf(const Entity& entity);

} // namespace kelplot
