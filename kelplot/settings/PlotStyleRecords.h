// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>

#include "settings/PenTable.h"

namespace kelplot {

/// Why a table of plot styles cannot be used.
struct PlotStyleFault {
    QString reason;
};

/// What the names of a table's styles are: "Color_1" to "Color_255", or any.
enum class StyleNames { colours, free };

/// The pens that the text of a table of plot styles comes to.
///
/// The text holds "KEY=VALUE" and blocks "KEY{" to "}", each on lines of its own. A value that begins with a quote is
/// a text up to the end of its line. Throws `PlotStyleFault`.
PenTable plotStylesIn(const QByteArray& text, StyleNames names);

} // namespace kelplot
