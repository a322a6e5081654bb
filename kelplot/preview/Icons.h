// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QIcon>

namespace kelplot {

enum class IconKind { print, save, zoomIn, zoomOut, fit, trueSize, layers, options };

/// A small picture for a button, drawn in the colour of its text.
QIcon iconFor(IconKind kind, const QColor& colour);

} // namespace kelplot
