// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QRgb>
#include <string>

namespace kelplot {

/// What a page's content has set, as far as it matters for what is set next. The values are those that a page begins
/// with.
struct PdfState {
    QRgb fill = 0xFF000000;
    QRgb stroke = 0xFF000000;
    double lineWidth = 1.0;
    int cap = 0;
    int join = 0;
    double mitreLimit = 10.0;
    std::string dashes = "[]0 d\n"; ///< the operator that sets them
    int blend = 0;                  ///< the number of the graphics state for opacity and blend mode
    int font = -1;
};

} // namespace kelplot
