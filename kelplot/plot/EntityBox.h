// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Entity.h"
#include "geometry/Box2.h"
#include "geometry/PlanMap.h"
#include "plot/text/Typesetter.h"

namespace kelplot {

/// How exact the box of a free-form curve is.
enum class CurveBox {
    hull, ///< that of the points that shape the curve: quick, never too small
    exact ///< that of the curve
};

/// The box of what an entity covers, without the width that its line weight adds; empty when it has
/// nothing that can be drawn. References to blocks have no box of their own. `texts` lays out those of the drawing.
Box2 boxOf(const Entity& entity, const PlanMap& map, CurveBox curves, const Typesetter& texts);

} // namespace kelplot
