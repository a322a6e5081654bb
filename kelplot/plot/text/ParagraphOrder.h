// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <vector>

namespace kelplot {

/// A part of a line that is written in one direction.
struct LineItem {
    enum class Kind : uint8_t { text, stack, blank };
    Kind kind = Kind::text;
    size_t source = 0; ///< index into Paragraph::pieces
    QString text;      ///< empty where a stack or a tab stands
    double width = 0.0;
};

/// Puts the items of a line from left to right as they are read, given in the order in which they are written. Texts of
/// one source that stay together become one item, which the renderer puts in order by itself.
///
/// @param rightToLeft  the direction of the paragraph
/// @param join         false keeps the items apart, whose blanks are wider than those of the font
std::vector<LineItem> inVisualOrder(std::vector<LineItem> items, bool rightToLeft, bool join);

} // namespace kelplot
