// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QBrush>

#include "drawing/Entity.h"
#include "geometry/Box2.h"

namespace kelplot {

/// The brush of a gradient for an area that fills `box`, both in device units.
///
/// @param turned  by how much the page turns the plane of the hatch, in radians, y downwards
QBrush gradientBrush(const HatchGradient& gradient, const Box2& box, double turned, const QColor& first,
                     const QColor& second);

} // namespace kelplot
