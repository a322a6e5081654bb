// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QStringList>

#include "page/PageSetup.h"
#include "plot/DrawingPlot.h"

namespace kelplot {

/// What a plot leaves out, a message each.
QStringList missingParts(const Drawing& drawing, const ExtentsReport& report);
QStringList missingParts(const Drawing& drawing, const PlotReport& report);

/// That a plot is larger than its paper: how large it is, in which unit, and the scale that would fit.
QString tooLarge(const Box2& subject, double millimetresPerUnit, const PageLayout& layout, bool isWindow);

/// Which families stand for fonts that are not installed; empty where none do.
QString replacedFonts(const FontReport& fonts);

/// What the format of the output could not take as it was drawn; empty where there is nothing.
QString shortcomings(const std::map<QString, size_t>& counts);

/// Which characters no font has; empty where there are none.
QString missingCharacters(const FontReport& fonts);

} // namespace kelplot
