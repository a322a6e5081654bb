// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

namespace kelplot {

// Apart from the plotter of texts, for those who choose and do not plot.

/// What texts are on paper: their outlines, or texts of fonts, which can be searched.
enum class TextMode { outlines, fonts };

} // namespace kelplot
