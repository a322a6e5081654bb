// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QGradient>
#include <QRectF>
#include <string>

namespace kelplot {

/// What a shading shows of the colours of a gradient.
enum class ShadingPart { colours, opacities };

/// The dictionary of a shading like a linear or radial gradient, in the gradient's coordinates.
///
/// @param area  that is to be covered: a gradient that begins anew is laid out that far
std::string shadingDictionary(const QGradient& gradient, const QRectF& area, ShadingPart part);

} // namespace kelplot
