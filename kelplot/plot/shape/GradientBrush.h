// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QBrush>

#include "drawing/Entity.h"
#include "geometry/Box2.h"

namespace kelplot {

/// The brush of a gradient for an area that fills `box`, both in device units.
///
/// @param direction  in which the colours run, of any length
QBrush gradientBrush(const HatchGradient& gradient, const Box2& box, Vec2 direction, const QColor& first,
                     const QColor& second);

} // namespace kelplot
