// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QStringList>

#include "drawing/Drawing.h"

namespace kelplot {

/// Tells whether a layer's name matches `pattern`, ignoring case; `*` stands for any text.
bool matchesLayer(const QString& pattern, const QString& name);

/// Keeps all layers off paper that are not among `wanted` or are among `unwanted`; an empty `wanted` means
/// all. Returns the patterns that no layer matches.
QStringList filterLayers(Drawing& drawing, const QStringList& wanted, const QStringList& unwanted);

} // namespace kelplot
