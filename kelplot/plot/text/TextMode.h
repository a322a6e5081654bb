// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

namespace kelplot {

// In a header of its own, for code that chooses the mode without plotting.

/// What texts are on paper: their outlines, or texts of fonts, which can be searched.
enum class TextMode { outlines, fonts };

} // namespace kelplot
